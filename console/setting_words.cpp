#include "console/setting_words.h"

#include <charconv>
#include <optional>
#include <vector>

namespace tarnwell {
namespace {

std::optional<int> WholeNumber(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<int> NumberIn(std::string_view text, int lowest, int highest) {
  const std::optional<int> number = WholeNumber(text);
  if (!number || *number < lowest || *number > highest) return std::nullopt;
  return number;
}

std::string Range(int lowest, int highest) {
  return std::to_string(lowest) + " to " + std::to_string(highest);
}

Status Refused(std::string_view word, const std::string& expected) {
  return Status::Error(Failure::kOther, "\"" + std::string(word) + "\": " + expected);
}

struct Assignment {
  std::string_view left;
  std::string_view right;
};

// "left=right", split at the first equals sign; without one, all of it is the left side.
Assignment SplitAssignment(std::string_view word) {
  const std::size_t equals = word.find('=');
  if (equals == std::string_view::npos) return {word, {}};
  return {word.substr(0, equals), word.substr(equals + 1)};
}

// Exactly `count` numbers between commas, each in the range; nothing otherwise.
std::optional<std::vector<int>> NumberList(std::string_view word, std::size_t count, int lowest,
                                           int highest) {
  std::vector<int> numbers;
  for (;;) {
    const std::size_t comma = word.find(',');
    const std::optional<int> number = NumberIn(word.substr(0, comma), lowest, highest);
    if (!number || numbers.size() == count) return std::nullopt;
    numbers.push_back(*number);
    if (comma == std::string_view::npos) break;
    word.remove_prefix(comma + 1);
  }
  if (numbers.size() != count) return std::nullopt;
  return numbers;
}

}  // namespace

Result<ModuleSetting> ParseModuleSetting(std::string_view word) {
  const Assignment parts = SplitAssignment(word);
  const std::optional<int> module = NumberIn(parts.left, 0, kModuleCount - 1);
  if (!module || (parts.right != "on" && parts.right != "off")) {
    return Refused(word,
                   "N=on or N=off is expected, with a module N from " + Range(0, kModuleCount - 1));
  }
  return ModuleSetting{*module, parts.right == "on"};
}

Result<SliderSetting> ParseSliderSetting(std::string_view word) {
  const Assignment parts = SplitAssignment(word);
  const std::optional<int> slider = NumberIn(parts.left, 0, kSliderCount - 1);
  if (!slider) {
    return Refused(word, "N=VALUE is expected, with a slider N from " + Range(0, kSliderCount - 1));
  }
  const SliderInfo& info = kSliders[*slider];
  const std::optional<int> value = NumberIn(parts.right, info.lowest, info.highest);
  if (!value) {
    return Refused(word, "slider " + std::to_string(*slider) + " (" + info.name +
                             ") takes a whole number from " + Range(info.lowest, info.highest));
  }
  return SliderSetting{*slider, *value};
}

Result<CheckSetting> ParseCheckSetting(std::string_view word) {
  const Assignment parts = SplitAssignment(word);
  const std::optional<int> check = NumberIn(parts.left, 0, kCheckCount - 1);
  if (!check || (parts.right != "0" && parts.right != "1")) {
    return Refused(
        word, "N=0 or N=1 is expected, with a check option N from " + Range(0, kCheckCount - 1));
  }
  return CheckSetting{*check, parts.right == "1"};
}

Result<HueMarker> ParseHueMarker(std::string_view word) {
  const auto numbers = NumberList(word, 2, 0, kHueFieldLast);
  if (!numbers) {
    return Refused(word, "X,Y is expected, each from " + Range(0, kHueFieldLast));
  }
  return HueMarker{(*numbers)[0], (*numbers)[1]};
}

Result<Rgb> ParseColour(std::string_view word) {
  const auto numbers = NumberList(word, 3, 0, 255);
  if (!numbers) return Refused(word, "R,G,B is expected, each from " + Range(0, 255));
  return Rgb{(*numbers)[0], (*numbers)[1], (*numbers)[2]};
}

Result<JpegQuality> ParseJpegQuality(std::string_view word) {
  if (word == "original") return JpegQuality();
  const std::optional<int> quality = NumberIn(word, 0, 100);
  if (!quality) return Refused(word, "\"original\" or a quality is expected, " + Range(0, 100));
  return quality;
}

}  // namespace tarnwell
