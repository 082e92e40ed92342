#include "engine/noise_rule.h"

#include <algorithm>
#include <cmath>

#include "engine/rounding.h"

namespace tarnwell {

int DiscHalfWidth(int radius, int dy) {
  // (radius + 0.5)^2 is radius^2 + radius + 0.25, and whole numbers never fall between.
  const std::int64_t limit = std::int64_t{radius} * radius + radius - std::int64_t{dy} * dy;
  auto dx = static_cast<std::int64_t>(std::sqrt(static_cast<double>(limit)));
  while (dx * dx > limit) --dx;
  while ((dx + 1) * (dx + 1) <= limit) ++dx;
  return static_cast<int>(dx);
}

NoiseRule::NoiseRule(const NoiseSettings& settings) {
  const double side = 2.0 * settings.radius + 1;
  normaliser_ = side * side + 1;
  for (int sum = 0; sum <= 765; ++sum) {
    double threshold = settings.threshold;
    if (settings.darkness_weighting) {
      const double darkness = 1 - sum / 765.0;
      threshold = threshold * darkness * 1.25;
    }
    thresholds_[sum] = threshold;
    // A whole number is below the threshold exactly when it is below the threshold rounded up.
    limits_[sum] = static_cast<int>(std::clamp(std::ceil(threshold), 0.0, 766.0));
    highest_limit_ = std::max(highest_limit_, limits_[sum]);
  }
}

void NoiseRule::Blend(const NoiseSums& sums, std::uint8_t* bytes) const {
  const double threshold = thresholds_[SumOfChannels(bytes)];
  if (threshold <= 0) return;
  for (int channel = 0; channel < 3; ++channel) {
    const double change = (static_cast<double>(sums.plain[channel]) -
                           static_cast<double>(sums.weighted[channel]) / threshold) /
                          normaliser_;
    bytes[channel] = static_cast<std::uint8_t>(RoundHalfToEven(bytes[channel] + change));
  }
}

}  // namespace tarnwell
