#pragma once

#include "imaging/pixel_array.h"
#include "platform/status.h"

namespace tarnwell {

struct Form1;

// Replaces every marked pixel of `pixels` by the mean (rounded half to even) of the nearest sound
// pixels to its left, above, to its right and below, at most 100 away. A pixel is marked when the
// red channel of `map` is above `threshold`, and sound when it is below; one that equals the
// threshold is neither. A marked pixel with no sound neighbour stays. Both pictures have the same
// size.
void RepairDeadPixels(MutablePixelView pixels, const PixelView& map, int threshold);

// Repairs picOriginal from the map of the current camera and the photo's resolution, and shows the
// result. Without a map (or one of another size) the photo stays as it is and a tip is offered; the
// user is told when the map cannot be read or memory does not suffice. Events run meanwhile; fails
// with kCancelled only.
Status RepairOpenedPhoto(Form1& form);

}  // namespace tarnwell
