#pragma once

#include <cstdint>
#include <vector>

#include "imaging/pixel_array.h"

namespace tarnwell {

// What one run's noise filter works with.
struct NoiseSettings {
  int radius = 1;                   // pixels, at least 1
  double threshold = 7.65;          // colour difference |dR| + |dG| + |dB|, at most 765
  bool darkness_weighting = false;  // the threshold follows the pixel's darkness
};

// Smooths pixels with neighbours of nearly the same colour inside a disc.
//
// For a pixel with threshold T, each neighbour in the disc (and the picture) whose colour
// difference d is below T weighs (T - d) / T, the pixel itself 1. The pixel is blended with the
// weighted mean by weight total / N, with N = (2 x radius + 1)^2 + 1. Per channel this comes to
//   R + (A - B / T) / N    with A = sum of (R' - R), B = sum of d x (R' - R)
// over these neighbours. A and B are whole numbers, so their order does not matter.
class NoiseFilter {
 public:
  // `reference` are the pixels before the run; they outlive the filter.
  NoiseFilter(const PixelView& reference, const NoiseSettings& settings);

  // The filtered pixel at (x, y), each channel rounded half to even.
  struct Pixel {
    std::int16_t blue;
    std::int16_t green;
    std::int16_t red;
  };
  Pixel At(int x, int y) const;

 private:
  // Sums over the neighbours whose difference is below the threshold.
  struct Sums {
    std::int64_t plain[3] = {0, 0, 0};     // A per channel, blue first
    std::int64_t weighted[3] = {0, 0, 0};  // B per channel
  };
  void AddRow(const std::uint8_t* centre, const std::uint8_t* row, int count, int limit,
              Sums& sums) const;

  PixelView reference_;
  NoiseSettings settings_;
  double normaliser_;
  std::vector<int> half_widths_;  // of the disc, for |dy| = 0 to radius
};

// Half the width of the disc of `radius` at `dy` rows from its centre: the largest dx with
// dx^2 + dy^2 <= (radius + 0.5)^2.
int DiscHalfWidth(int radius, int dy);

}  // namespace tarnwell
