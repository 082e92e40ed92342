#pragma once

#include <cmath>
#include <cstdint>

namespace tarnwell {

// The one rounding of the corrections: to the nearest integer, ties to even, into 16 bits.
// False, with `target` as it was, when the rounded value lies outside -32768..32767 or `value` is
// no number; the caller's assignment then simply does not happen.
inline bool RoundInto(std::int16_t& target, double value) {
  // The default rounding mode of the processor is to nearest, ties to even; nothing changes it.
  const double rounded = std::nearbyint(value);
  if (!(rounded >= -32768.0 && rounded <= 32767.0)) return false;
  target = static_cast<std::int16_t>(rounded);
  return true;
}

}  // namespace tarnwell
