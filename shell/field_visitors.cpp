#include "shell/field_visitors.h"

#include <algorithm>

#include "shell/lenient_number.h"

namespace tarnwell {

void FieldWriter::Text(const std::string& text) {
  // A line end within a value (some systems allow it in file names) would shift all that follows.
  const bool is_one_line = text.find('\n') == text.npos;
  text_ += (is_one_line ? text : "") + "\r\n";
}

void FieldWriter::ValueText(std::string& value, const SliderInfo&) {
  if (!ParseLenientInt16(value)) value = "0";
  Text(value);
}

void FieldReader::Text(std::string& text) {
  if (const auto line = NextLine()) text = *line;
}

void FieldReader::Choice(int& number, int lowest, int highest) {
  const auto read = NextNumber();
  if (!read) return;
  if (*read >= lowest && *read <= highest) {
    number = *read;
    return;
  }
  status_ = lines_.Damaged("a number from " + std::to_string(lowest) + " to " +
                           std::to_string(highest) + " is expected here");
}

void FieldReader::Number(int& number, int lowest, int highest) {
  if (const auto read = NextNumber()) number = std::clamp(*read, lowest, highest);
}

void FieldReader::ValueText(std::string& value, const SliderInfo& slider) {
  const auto line = NextLine();
  if (!line) return;
  const auto number = ParseLenientInt16(*line);
  if (!number) {
    status_ = lines_.Damaged("a whole number is expected here");
    return;
  }
  const int fitting = std::clamp<int>(*number, slider.lowest, slider.highest);
  value = fitting == *number ? std::string(*line) : std::to_string(fitting);
}

void FieldReader::Flag(bool& on) {
  int number = on;
  Choice(number, 0, 1);
  on = number == 1;
}

void FieldReader::Flag(std::int16_t& open) {
  bool on = open == 1;
  Flag(on);
  open = on ? 1 : 0;
}

void FieldReader::Flag(std::string& check) {
  bool on = check == "1";
  Flag(on);
  check = on ? "1" : "0";
}

std::optional<std::string_view> FieldReader::NextLine() {
  if (!status_.ok()) return std::nullopt;
  const auto line = lines_.Next();
  if (!line) status_ = lines_.Missing();
  return line;
}

std::optional<int> FieldReader::NextNumber() {
  if (!status_.ok()) return std::nullopt;
  const Result<int> number = NextInteger(lines_);
  if (!number.ok()) status_ = number.status;
  return number.value;
}

}  // namespace tarnwell
