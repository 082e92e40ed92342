#pragma once

#include <array>
#include <cstdint>

#include "engine/noise_settings.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// What a pixel's neighbours add up to; blue, green, red.
struct NoiseSums {
  std::int64_t plain[3] = {0, 0, 0};     // A = sum of (R' - R)
  std::int64_t weighted[3] = {0, 0, 0};  // B = sum of d x (R' - R)
};

// The formula of the noise filter, apart from how the sums are found. The threshold T of a pixel
// follows from the sum of its channels, 0 to 765.
class NoiseRule {
 public:
  explicit NoiseRule(const NoiseSettings& settings);

  // A neighbour counts when its difference, a whole number, is below this one: T rounded up. 0
  // when no neighbour counts, 766 when every one does.
  int limit(int sum) const { return limits_[sum]; }
  int highest_limit() const { return highest_limit_; }
  double threshold(int sum) const { return thresholds_[sum]; }  // T
  double normaliser() const { return normaliser_; }             // N

  // Blends the pixel at `bytes` by R + (A - B / T) / N; the unused channel stays. The mean of
  // neighbours is blended in by less than 1, so that the result is always a channel value.
  void Blend(const NoiseSums& sums, std::uint8_t* bytes) const;

 private:
  std::array<double, 766> thresholds_;
  std::array<int, 766> limits_;
  int highest_limit_ = 0;
  double normaliser_;
};

// Half the width of the disc of `radius` at `dy` rows from its centre: the largest dx with
// dx^2 + dy^2 <= (radius + 0.5)^2.
int DiscHalfWidth(int radius, int dy);

}  // namespace tarnwell
