#pragma once

#include <functional>

#include "imaging/pixel_array.h"

namespace tarnwell {

// How far one pixel lies above and below its surroundings, in multiples of the noise there; 0 or
// more each.
struct Deviation {
  double up = 0;
  double down = 0;
};

// Asked by long work now and then, with the share that is done.
using GoOn = std::function<bool(double share)>;

using NoteDeviation = std::function<void(int x, int y, const Deviation&)>;

// Measures every pixel of a test shot against its surroundings and hands it to `note`, once each,
// in no particular order.
//
// The surroundings are the median of eight pixels at a distance of 2, so that neither the pixel nor
// its next neighbours, which it colours on its way through a camera, count. The noise is the
// spread of the differences in the tile around the pixel, above and below apart (a dark shot ends
// at 0, and its noise reaches upwards only). Where the pixel's own JPEG block spreads wider, that
// counts, except for the one pixel that leads its block by far: a stuck pixel leaves waves in its
// block, and only their centre is to stand out. Noise of
// less than 1.5 levels counts as that, since much smaller differences are not seen.
//
// `go_on` is asked before every tile, with the share of the shot that is done (0 to 1); the work
// ends when it says no. Returns whether all pixels were noted.
bool MeasureDeviations(const PixelView& shot, const NoteDeviation& note, const GoOn& go_on);

}  // namespace tarnwell
