#pragma once

#include <vector>

#include "engine/histogram.h"

namespace tarnwell {

// The histogram as bars for a picture of it, one per column of `width`: the mean of the levels that
// fall on the column (one column may take a level more than the next), as a share 0 to 1 of the
// tallest. The tallest is taken without the two ends,
// where clipped light and shadow would flatten all the rest; a taller end is cut off at 1. All 0
// for an empty histogram.
std::vector<double> HistogramBars(const BrightnessHistogram& histogram, int width);

}  // namespace tarnwell
