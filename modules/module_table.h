#pragma once

#include <array>
#include <cstddef>

namespace tarnwell {

// The fourteen correction modules. The index is fixed: settings files and presets use it.
enum Module : int {
  kCameraAndMode = 0,
  kSmartPhotoCorrection = 1,
  kSmartWhiteBalance = 2,
  kAdjustBrightness = 3,
  kAdjustContrast = 4,
  kAdjustSaturation = 5,
  kAdjustHue = 6,
  kNoiseReduction = 7,
  kDeadPixelCorrection = 8,
  kRotation = 9,
  kJpegQuality = 10,
  kSavePhotoAs = 11,
  kAdjustFocus = 12,
  kColorRotation = 13,
};
inline constexpr int kModuleCount = 14;

struct ModuleInfo {
  const char* title;
  const char* purpose;  // one line for people, as in the README
  bool open_at_first_start;
};
extern const std::array<ModuleInfo, kModuleCount> kModules;

// The sliders, by fixed numbers of their own: presets and settings files use these, too.
enum SliderIndex : int {
  kWhiteLimitSlider = 0,
  kBlackLimitSlider = 1,
  kWhiteBalanceSlider = 2,
  kBrightnessSlider = 3,
  kContrastSlider = 4,
  kSaturationSlider = 5,
  kJpegQualitySlider = 6,
  kNoiseThresholdSlider = 7,
  kNoiseRadiusSlider = 8,
  kDeadPixelSlider = 9,
  kFocusDistanceSlider = 10,
  kFocusAmountSlider = 11,
  kColorRotationSlider = 12,
};
inline constexpr int kSliderCount = 13;

// How a knob position p (0 to 182) becomes a value, and back.
enum class SliderScale {
  kPercent,        // floor(p / 1.81): 0 to 100
  kSignedPercent,  // floor((p / 91 - 1) x 100): -100 to 100
  kOneToTen,       // floor(p / 91 x 4.5) + 1: 1 to 10
  kDegrees,        // floor(p / 91 x 180) - 180: -180 to 180
};

struct SliderInfo {
  const char* name;  // what the value means, for captions and help
  int module;
  SliderScale scale;
  int lowest;  // value
  int highest;
  int default_position;  // knob position before it is snapped
};
extern const std::array<SliderInfo, kSliderCount> kSliders;

inline constexpr int kCheckCount = 5;

enum Check : int {
  kWhiteLimitByHand = 0,
  kBlackLimitByHand = 1,
  kLearnFromSavedPhotos = 2,
  kUseLearntCorrections = 3,
  kProtectLightAreas = 4,
};

// Two-state choices about saving that are no check options: presets and the lines of the settings
// file are numbered without them.
enum SaveSwitch : int { kQualityAsOriginal = 0, kLeavePlaceOut = 1 };
inline constexpr int kSaveSwitchCount = 2;
extern const std::array<const char*, kSaveSwitchCount> kSaveSwitches;  // captions

struct CheckInfo {
  const char* caption;
  int module;
  bool default_checked;
};
extern const std::array<CheckInfo, kCheckCount> kChecks;

}  // namespace tarnwell
