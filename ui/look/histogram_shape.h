#pragma once

#include <vector>

#include "engine/histogram.h"

namespace tarnwell {

struct frmModules;

// The histogram as bars for a picture of it, one per column of `width`: the mean of the levels that
// fall on the column (one column may take a level more than the next), as a share 0 to 1 of the
// tallest. The tallest is taken without the two ends,
// where clipped light and shadow would flatten all the rest; a taller end is cut off at 1. All 0
// for an empty histogram.
std::vector<double> HistogramBars(const BrightnessHistogram& histogram, int width);

// The levels (0 to 765) between which the photo's tones lie: those set by hand in the panel,
// otherwise where more than 1 % of the pixels have been passed from either end. Not known for an
// empty histogram.
struct ToneLimits {
  bool known = false;
  double black = 0;
  double white = kHighestSum;
};
ToneLimits LimitsOf(const BrightnessHistogram& histogram, const frmModules& panel);

}  // namespace tarnwell
