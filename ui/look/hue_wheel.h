#pragma once

#include "imaging/pixel_array.h"
#include "ui/look/shapes.h"
#include "ui/look/theme.h"

namespace tarnwell {

inline constexpr int kHueFieldSide = 106;

// The field of the hue picker as a picture of `side` x `side` pixels: in a disc, what each point
// does to a light grey, shown stronger than it is; `ground` around it. Null when memory does not
// suffice.
Picture HueWheel(int side, Colour ground);

// Where a marker of `radius` is drawn in a wheel of `side`: whole and in the disc, although its
// place, which may be anywhere in the square, lies beyond.
Point MarkerInWheel(Point place, double side, double radius);

}  // namespace tarnwell
