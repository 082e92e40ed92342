// A white balance file is four lines, each a tag of five characters and a whole number:
//
//   Red: 192
//   Grn: 192
//   Blu: 192
//   Sld: 91
//
// The tag is not checked, only skipped. A preset that was saved while no custom file was in use has
// four lines "0" there instead; they stand for black with the slider at 0.

#include "modules/white_balance_file.h"

#include <algorithm>
#include <array>

#include "modules/settings_file.h"
#include "platform/files.h"
#include "shell/lenient_number.h"
#include "shell/line_reader.h"

namespace tarnwell {
namespace {

constexpr int kTagLength = 5;
constexpr std::array<const char*, 4> kTags = {"Red: ", "Grn: ", "Blu: ", "Sld: "};
constexpr std::array<int, 4> kHighest = {255, 255, 255, kKnobLast};

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

// The text from the sixth character on. Characters, not bytes: a tag in the user's own language may
// hold letters of several bytes.
std::string_view BehindTag(std::string_view line) {
  int characters = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (StartsCharacter(line[i]) && ++characters > kTagLength) return line.substr(i);
  }
  return {};
}

// The four lines of a preset without a custom file. Nothing else may leave the tag out.
bool IsPlaceholder(std::string_view text) {
  LineReader lines(text, "");
  for (std::size_t i = 0; i < kTags.size(); ++i) {
    if (lines.Next() != "0") return false;
  }
  return true;
}

}  // namespace

Result<WhiteBalanceSetting> ParseWhiteBalance(std::string_view text, const std::string& name) {
  if (IsPlaceholder(text)) return WhiteBalanceSetting{{0, 0, 0}, 0};
  std::array<int, 4> values = {};
  LineReader lines(text, name);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto line = lines.Next();
    if (!line) return lines.Missing();
    const auto number = ParseLenientInt16(BehindTag(*line));
    if (!number) return lines.Damaged("a whole number is expected from the sixth character on");
    values[i] = std::clamp<int>(*number, 0, kHighest[i]);
  }
  return WhiteBalanceSetting{{values[0], values[1], values[2]}, values[3]};
}

std::string WhiteBalanceText(const WhiteBalanceSetting& setting) {
  const std::array<int, 4> values = {setting.colour.red, setting.colour.green, setting.colour.blue,
                                     setting.slider_position};
  std::string text;
  for (std::size_t i = 0; i < values.size(); ++i) {
    text += kTags[i] + std::to_string(values[i]) + "\r\n";
  }
  return text;
}

Result<WhiteBalanceSetting> ReadWhiteBalanceFile(Files& files, const std::string& path) {
  const Result<std::string> text = files.Read(path, kMostTextBytes);
  if (!text.ok()) return text.status;
  return ParseWhiteBalance(*text, files.Display(path));
}

Status WriteWhiteBalanceFile(Files& files, const std::string& path,
                             const WhiteBalanceSetting& setting) {
  return ReplaceSettingsFile(files, path, WhiteBalanceText(setting));
}

}  // namespace tarnwell
