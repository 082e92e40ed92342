#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "modules/module_table.h"
#include "platform/status.h"
#include "shell/line_reader.h"

namespace tarnwell {

// The two ways through the fields of a positional file: FieldWriter makes its lines from the
// fields, FieldReader fills the fields from its lines. A function that visits every field with
// either is the description of the file. The kinds of field:
//
//   Text       any line
//   Choice     a whole number; anything outside its range is a damaged line
//   Number     a whole number; outside its range it becomes the nearest bound
//   ValueText  a slider's value as it is shown; outside its range it becomes the nearest bound
//   Flag       1 or 0, in whichever form the program keeps it

class FieldWriter {
 public:
  void Text(const std::string& text);
  void Choice(int number, int, int) { Text(std::to_string(number)); }
  void Number(int number, int, int) { Text(std::to_string(number)); }
  // An empty value, and one that is no number, becomes "0" first.
  void ValueText(std::string& value, const SliderInfo&);
  void Flag(bool on) { Text(on ? "1" : "0"); }
  void Flag(std::int16_t open) { Flag(open == 1); }
  void Flag(const std::string& check) { Flag(check == "1"); }

  // Whether lines follow that not every file has: here when they are `wanted`.
  bool GoesOn(bool wanted) const { return wanted; }

  bool ok() const { return true; }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

// Behind the first line that cannot be used every field stays as it is.
class FieldReader {
 public:
  // As LineReader.
  FieldReader(std::string_view text, const std::string& name) : lines_(text, name) {}

  void Text(std::string& text);
  void Choice(int& number, int lowest, int highest);
  void Number(int& number, int lowest, int highest);
  void ValueText(std::string& value, const SliderInfo& slider);
  void Flag(bool& on);
  void Flag(std::int16_t& open);
  void Flag(std::string& check);

  std::optional<std::string_view> NextLine();

  bool GoesOn(bool) const { return ok() && !lines_.AtEnd(); }

  bool ok() const { return status_.ok(); }
  const Status& status() const { return status_; }

 private:
  std::optional<int> NextNumber();

  LineReader lines_;
  Status status_;
};

}  // namespace tarnwell
