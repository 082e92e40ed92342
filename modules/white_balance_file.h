#pragma once

#include <string>
#include <string_view>

#include "modules/frm_modules.h"
#include "platform/status.h"

namespace tarnwell {

class Files;

// The white balance reference as stored in a ".wbs" file: the colour that is to become white, and
// the knob position of the strength slider. A new mode folder starts with these values.
struct WhiteBalanceSetting {
  Rgb colour = {192, 192, 192};
  int slider_position = kKnobCentre;  // 0 to 182
  bool operator==(const WhiteBalanceSetting&) const = default;
};

// The file of a camera and mode, in the mode folder.
inline constexpr const char* kModeWhiteBalanceName = "White Balance.wbs";
inline constexpr const char* kWhiteBalanceFilter = "White Balance Setting (*.wbs)|*.wbs";

// Reads a white balance file: its first four lines, so that a preset, which starts with the same
// four, serves as well. Colours outside 0 to 255 and positions outside 0 to 182 come back as the
// nearest bound. A failure names file and line. Never changes the file.
Result<WhiteBalanceSetting> ReadWhiteBalanceFile(Files& files, const std::string& path);

// Creates or replaces a white balance file.
Status WriteWhiteBalanceFile(Files& files, const std::string& path,
                             const WhiteBalanceSetting& setting);

// The same between setting and text. `name` is the file in messages.
Result<WhiteBalanceSetting> ParseWhiteBalance(std::string_view text, const std::string& name);
std::string WhiteBalanceText(const WhiteBalanceSetting& setting);

}  // namespace tarnwell
