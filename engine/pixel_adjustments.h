#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "engine/focus_filter.h"
#include "engine/noise_filter.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// Everything that decides what happens to a pixel in the adjustment pass.
struct AdjustmentSettings {
  std::optional<NoiseSettings> noise;
  std::optional<FocusSettings> focus;
  std::int16_t black_level = 0;
  double gain = 1;
  std::optional<std::array<float, 3>> hue_factors;             // red, green, blue
  std::optional<std::array<double, 3>> white_balance_offsets;  // red, green, blue
  double saturation_multiplier = 1;
  double contrast_factor = 0;  // negative pushes away from 128
};

// The channels of a pixel between two steps; may leave 0..255 until the last.
struct PixelValues {
  std::int16_t blue = 0;
  std::int16_t green = 0;
  std::int16_t red = 0;
};

// The steps after the filters, in order: black level, gain, hue factors, white balance, saturation,
// contrast. `starting_sum` is red + green + blue before any step, 0 to 765. Every product is
// rounded half to even; one that does not fit 16 bits leaves its channel as it was.
void AdjustTones(PixelValues& pixel, int starting_sum, const AdjustmentSettings& settings);

// Adjusts column `x` of `working`, row 0 first, all steps in order: noise filter, focus, tones,
// clamp. `noise` is null when the noise filter is off; otherwise it reads the uncorrected pixels.
// With focus on, columns must come in order, 0 first: the sharpening compares with neighbours that
// are partly corrected already. Without it columns are independent of each other.
void AdjustColumn(MutablePixelView working, int x, const AdjustmentSettings& settings,
                  const NoiseFilter* noise);

}  // namespace tarnwell
