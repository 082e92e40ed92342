#include "shell/time_left.h"

#include <iomanip>
#include <sstream>

namespace tarnwell {

std::string ShownDuration(std::int64_t seconds) {
  const std::int64_t hours = seconds / 3600;
  std::ostringstream text;
  if (hours > 0) text << hours << ":" << std::setfill('0') << std::setw(2);
  text << seconds / 60 % 60 << ":" << std::setfill('0') << std::setw(2) << seconds % 60;
  return text.str();
}

std::string ShownPosition(std::size_t number, std::size_t total, std::size_t done,
                          std::int64_t elapsed_nanos) {
  constexpr std::int64_t kNanosPerSecond = 1'000'000'000;
  std::string text = std::to_string(number) + " of " + std::to_string(total);
  if (done == 0) return text;
  const std::int64_t each = elapsed_nanos / static_cast<std::int64_t>(done);
  const std::int64_t left = each * static_cast<std::int64_t>(total - done);
  return text + ", " + ShownDuration(left / kNanosPerSecond) + " left";
}

}  // namespace tarnwell
