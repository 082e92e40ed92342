#pragma once

#include "imaging/pixel_array.h"

namespace tarnwell {

// What one run's focus filter works with.
struct FocusSettings {
  double amount = 0;  // -2 to 2; positive sharpens, negative softens
  int distance = 1;   // pixels to each side, at least 1
  int step = 1;       // between the neighbours looked at, at least 1

  friend bool operator==(const FocusSettings&, const FocusSettings&) = default;
};

// Means of the neighbours of a pixel, blue first.
struct NeighbourMeans {
  double channel[3];
};

// The means over the neighbours of (x, y) at offsets -distance, -distance + step, ... up to
// distance in both directions, without the pixel itself and without what lies outside the picture.
// Without any neighbour the means are 0.
NeighbourMeans FocusMeans(const PixelView& pixels, int x, int y, const FocusSettings& settings);

}  // namespace tarnwell
