#include "shell/time_left.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace tarnwell {
namespace {

constexpr std::int64_t kNanosPerSecond = 1'000'000'000;

// "1 minute", "4 minutes".
std::string Counted(std::int64_t count, const std::string& unit) {
  return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}

}  // namespace

std::string ShownDuration(std::int64_t seconds) {
  const std::int64_t hours = seconds / 3600;
  std::ostringstream text;
  if (hours > 0) text << hours << ":" << std::setfill('0') << std::setw(2);
  text << seconds / 60 % 60 << ":" << std::setfill('0') << std::setw(2) << seconds % 60;
  return text.str();
}

std::string ShownPosition(std::size_t number, std::size_t total, std::size_t done,
                          std::int64_t elapsed_nanos) {
  std::string text = std::to_string(number) + " of " + std::to_string(total);
  if (done == 0) return text;
  const std::int64_t each = elapsed_nanos / static_cast<std::int64_t>(done);
  const std::int64_t left = each * static_cast<std::int64_t>(total - done);
  return text + ", " + ShownDuration(left / kNanosPerSecond) + " left";
}

std::string AboutTimeLeft(double share_done, std::int64_t elapsed_nanos) {
  constexpr double kFirstSeconds = 3, kShort = 10, kMostSeconds = 1e7;
  const double elapsed = static_cast<double>(elapsed_nanos) / kNanosPerSecond;
  if (elapsed < kFirstSeconds || share_done <= 0) return {};
  const double left = elapsed * (1 - share_done) / share_done;
  if (left <= kShort || left > kMostSeconds) return {};
  const auto tens = static_cast<std::int64_t>(std::ceil(left / 10)) * 10;
  if (tens < 60) return "about " + Counted(tens, "second") + " left";
  const auto minutes = static_cast<std::int64_t>(std::round(left / 60));
  if (minutes < 60)
    return "about " + Counted(std::max<std::int64_t>(minutes, 1), "minute") + " left";
  const auto tens_of_minutes = static_cast<std::int64_t>(std::round(left / 600)) * 10;
  const std::string hours = "about " + Counted(tens_of_minutes / 60, "hour");
  const std::int64_t rest = tens_of_minutes % 60;
  return hours + (rest == 0 ? "" : " " + Counted(rest, "minute")) + " left";
}

}  // namespace tarnwell
