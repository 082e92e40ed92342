#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarnwell {

// The text without the blanks and tabs around it.
std::string_view WithoutBlanks(std::string_view text);

// Reads a decimal number as people and older settings files write it: blanks or tabs around it, a
// sign, a fraction behind a point, an exponent. The spelling does not depend on the system's
// language. Nothing for any other text, also for one that only starts with a number, and for a
// number too large for a double.
std::optional<double> ParseLenientNumber(std::string_view text);

// The same as a whole number, a fraction rounded half to even. Nothing outside -32768..32767.
std::optional<std::int16_t> ParseLenientInt16(std::string_view text);

}  // namespace tarnwell
