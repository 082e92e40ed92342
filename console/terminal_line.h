#pragma once

#include <iomanip>
#include <ostream>
#include <string>

namespace tarnwell {

// A line of a terminal that is drawn again and again in place: wiped, then written anew.
inline constexpr char kWipeLine[] = "\r\x1b[K";

// "[####......]  40 %" with `width` characters in the bar; `percent` is 0 to 100.
inline void DrawPercentBar(std::ostream& terminal, int percent, int width) {
  const int filled = percent * width / 100;
  terminal << "[" << std::string(filled, '#') << std::string(width - filled, '.') << "] "
           << std::setw(3) << percent << " %";
}

}  // namespace tarnwell
