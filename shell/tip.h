#pragma once

namespace tarnwell {

// The program's tips by their fixed numbers. Settings store the numbers: new tips go to the end.
enum Tip : int {
  kStartUpTip = 1,
  kModuleSwitchTip = 2,
  kPreviewTip = 3,
  kSmartCorrectionTip = 4,
  kMaximizeTip = 5,
  kDeadPixelTip = 6,
  kPickWhiteTip = 7,
  kPickSkinTip = 8,
};
inline constexpr int kTipCount = 8;

}  // namespace tarnwell
