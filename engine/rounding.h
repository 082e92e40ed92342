#pragma once

#include <cstdint>

namespace tarnwell {

// 1.5 x 2^52: adding it leaves no bits for a fraction, so the addition itself rounds, in the
// processor's default mode. Unlike std::nearbyint this needs no call on baseline x86-64.
inline constexpr double kNoFraction = 6755399441055744.0;

// `value` rounded to the nearest integer, ties to even. Beyond 2^51 the result is some number of
// about that size, and what is no number stays none.
inline double RoundHalfToEven(double value) { return (value + kNoFraction) - kNoFraction; }

// The one rounding of the corrections: RoundHalfToEven into 16 bits. False, with `target` as it
// was, when the rounded value lies outside -32768..32767 or `value` is no number; the assignment
// then simply does not happen.
inline bool RoundInto(std::int16_t& target, double value) {
  const double rounded = RoundHalfToEven(value);
  if (!(rounded >= -32768.0 && rounded <= 32767.0)) return false;
  target = static_cast<std::int16_t>(rounded);
  return true;
}

// `target` = `dividend` / `divisor`. False, with `target` as it was, when the divisor is 0: an
// undefined division is a step that does not happen.
inline bool DivideInto(double& target, double dividend, double divisor) {
  if (divisor == 0) return false;
  target = dividend / divisor;
  return true;
}

}  // namespace tarnwell
