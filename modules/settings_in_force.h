#pragma once

#include <optional>

#include "modules/module_table.h"

namespace tarnwell {

// Whether the module's settings are in force while it is closed, too: closing it only puts them out
// of sight. The settings of the others then do nothing.
inline bool ActsWhileClosed(int module) {
  return module == kCameraAndMode || module == kJpegQuality || module == kSavePhotoAs;
}

// The check option that puts the slider's value in force, where it needs one.
inline std::optional<Check> CheckBehind(int slider) {
  if (slider == kWhiteLimitSlider) return kWhiteLimitByHand;
  if (slider == kBlackLimitSlider) return kBlackLimitByHand;
  return std::nullopt;
}

}  // namespace tarnwell
