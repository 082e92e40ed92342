#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "modules/frm_modules.h"
#include "platform/status.h"

namespace tarnwell {

// Single settings as one word each. Every parser below fails with a text that says what would have
// been right; it takes whole numbers in decimal, with a sign or without, and nothing around them.

struct ModuleSetting {
  int module;
  bool on;
  bool operator==(const ModuleSetting&) const = default;
};
struct SliderSetting {
  int slider;
  int value;  // in the slider's range
  bool operator==(const SliderSetting&) const = default;
};
struct CheckSetting {
  int check;
  bool checked;
  bool operator==(const CheckSetting&) const = default;
};
struct HueMarker {
  int x;  // inside the hue picker's field
  int y;
  bool operator==(const HueMarker&) const = default;
};

// The quality of saved JPEG files: nothing stands for that of the photo's own file.
using JpegQuality = std::optional<int>;

Result<ModuleSetting> ParseModuleSetting(std::string_view word);  // "3=on"
Result<SliderSetting> ParseSliderSetting(std::string_view word);  // "3=-20"
Result<CheckSetting> ParseCheckSetting(std::string_view word);    // "2=0"
Result<HueMarker> ParseHueMarker(std::string_view word);          // "60,40"
Result<Rgb> ParseColour(std::string_view word);                   // "255,250,240"
Result<JpegQuality> ParseJpegQuality(std::string_view word);      // "85", "original"

}  // namespace tarnwell
