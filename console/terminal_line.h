#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <utility>

#include "console/shown_text.h"

namespace tarnwell {

// The last line of a terminal, drawn again and again in place.
class TerminalLine {
 public:
  // `columns`: how wide the terminal is at the moment.
  TerminalLine(std::ostream& terminal, std::function<int()> columns)
      : terminal_(terminal), columns_(std::move(columns)) {}

  void Wipe() { terminal_ << kWipe << std::flush; }
  // As much as fits: of a line that goes on below, only the last part would be wiped. The last
  // column stays free, where some terminals go on to the next line at once.
  void Draw(const std::string& text) {
    terminal_ << kWipe << CutToWidth(OneLine(text), columns_() - 1) << std::flush;
  }

 private:
  static constexpr char kWipe[] = "\r\x1b[K";

  std::ostream& terminal_;
  std::function<int()> columns_;
};

// "[####......]  40 %" with `width` characters in the bar; `percent` is 0 to 100.
inline std::string PercentBar(int percent, int width) {
  const int filled = percent * width / 100;
  const std::string number = std::to_string(percent);
  return "[" + std::string(filled, '#') + std::string(width - filled, '.') + "] " +
         std::string(3 - number.size(), ' ') + number + " %";
}

}  // namespace tarnwell
