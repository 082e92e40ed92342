#pragma once

#include "imaging/pixel_array.h"
#include "platform/events.h"

namespace tarnwell {

// The picture as it is to be seen when it was stored with this EXIF orientation:
//
//   1 as it is            5 mirrored along the diagonal from the left top
//   2 left and right      6 a quarter turn clockwise
//   3 half a turn         7 mirrored along the other diagonal
//   4 top and bottom      8 a quarter turn anticlockwise
//
// Gives `picture` itself for 1, and null when memory does not suffice or `go_on` says so.
Picture TurnUpright(const Picture& picture, int orientation, const GoOn& go_on = ToTheEnd);

// Whether this orientation exchanges width and height.
bool ExchangesSides(int orientation);

}  // namespace tarnwell
