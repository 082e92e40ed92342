#pragma once

#include <cstdint>

#include "engine/learning_data.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// The automatic correction aims at these. The first two are single precision by definition, so
// their doubles differ from the decimal numbers.
inline constexpr double kTargetMeanBrightness = 0.55f;
inline constexpr double kTargetMeanSaturation = 0.16f;
inline constexpr double kSaturationCeiling = 0.76;

// Only pixels whose sum R + G + B lies between the limits are measured. Levels 0 to 765, real.
struct ToneLimits {
  double white_point = kTopSum;
  double black_point = 0;
  static constexpr double kTopSum = 765;
};

// Limits that leave something to measure: a white point of at least 2, and the black point below.
ToneLimits CheckToneLimits(ToneLimits limits);

// What one pass over the pixels finds.
struct Measurements {
  double highest_sum = 0;
  double lowest_sum = 765;
  int highest_max_channel = 0;
  int lowest_min_channel = 255;
  double highest_saturation = 0;
  double lowest_saturation = 255;
  double brightness_total = 0;
  double saturation_total = 0;
  std::uint64_t count = 0;
};

// Adds column `x` of `pixels` to `found`, row 0 first. Totals are sums of doubles, so columns must
// come in order, 0 first. `top_level` 0 to 255 is the saturation's divisor; at 0 no pixel has a
// saturation.
void MeasureColumn(const PixelView& pixels, int x, const ToneLimits& limits, int top_level,
                   Measurements& found);

// The automatic correction that follows from the measurements.
struct AutomaticCorrection {
  std::int16_t black_level = 0;  // subtracted from each channel
  double gain = 1;
  double saturation_multiplier = 1;
};

// Derives the correction and fills columns 0 to 11 of `record`. `limits` are the checked ones.
AutomaticCorrection DeriveCorrection(const Measurements& found, const ToneLimits& limits,
                                     LearningRecord& record);

}  // namespace tarnwell
