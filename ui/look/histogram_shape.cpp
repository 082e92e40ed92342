#include "ui/look/histogram_shape.h"

#include <algorithm>

namespace tarnwell {

std::vector<double> HistogramBars(const BrightnessHistogram& histogram, int width) {
  std::vector<double> bars(std::max(0, width));
  if (bars.empty()) return bars;
  constexpr int kLevels = kHighestSum + 1;
  for (int column = 0; column < width; ++column) {
    // At least one level falls on a column, also where there are more columns than levels.
    const int first = static_cast<int>(static_cast<std::int64_t>(column) * kLevels / width);
    const int next = static_cast<int>((static_cast<std::int64_t>(column) + 1) * kLevels / width);
    const int end = std::max(next, first + 1);
    for (int level = first; level < end; ++level) bars[column] += histogram[level];
    bars[column] /= end - first;
  }
  double tallest = 0;
  for (int column = 1; column + 1 < width; ++column) tallest = std::max(tallest, bars[column]);
  if (tallest == 0) tallest = std::max(bars.front(), bars.back());
  if (tallest == 0) return bars;
  for (double& bar : bars) bar = std::min(1.0, bar / tallest);
  return bars;
}

}  // namespace tarnwell
