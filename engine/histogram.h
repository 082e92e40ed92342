#pragma once

#include <array>
#include <cstdint>

#include "imaging/pixel_array.h"

namespace tarnwell {

inline constexpr int kHighestSum = 765;

// How many pixels have each brightness level red + green + blue, 0 to 765.
using BrightnessHistogram = std::array<std::uint32_t, kHighestSum + 1>;

BrightnessHistogram CountBrightness(const PixelView& pixels);

// The highest level that occurs, divided by 3 and rounded half to even; 255 for an empty histogram.
int TopLevel(const BrightnessHistogram& histogram);

// The automatic white point: the level at which, counting down from 765, more than 1 % of the
// width x height pixels have been passed; -1 when there never are.
int AutomaticWhitePoint(const BrightnessHistogram& histogram, int width, int height);

}  // namespace tarnwell
