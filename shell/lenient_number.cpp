#include "shell/lenient_number.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "engine/rounding.h"

namespace tarnwell {

std::string_view WithoutBlanks(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<double> ParseLenientNumber(std::string_view text) {
  std::string_view digits = WithoutBlanks(text);
  if (digits.starts_with('+')) {
    digits.remove_prefix(1);
    if (digits.starts_with('-')) return std::nullopt;
  }
  double number = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  // The words for infinity and "no number" are read as well; they are no numbers of a setting.
  if (error != std::errc() || stop != end || !std::isfinite(number)) return std::nullopt;
  return number;
}

std::optional<std::int16_t> ParseLenientInt16(std::string_view text) {
  const std::optional<double> number = ParseLenientNumber(text);
  std::int16_t whole = 0;
  if (!number || !RoundInto(whole, *number)) return std::nullopt;
  return whole;
}

}  // namespace tarnwell
