#pragma once

#include "ui/look/box.h"

namespace tarnwell {

// How much of the photo the preview shows: enlarged this many times over the size at which all of
// it is seen, with this point of the photo (0 to 1 in both directions) in the middle.
struct PreviewZoom {
  double factor = 1;
  double x = 0.5;
  double y = 0.5;

  bool enlarged() const { return factor > 1; }
};

// Where the photo lies around `client` when all of it would fill `whole`, which is centred there.
Box EnlargedBox(const PreviewZoom& zoom, const Box& client, const Box& whole);

// The zoom after the wheel was turned by `notches` (positive enlarges) at a point of the client
// area; what is below the point stays there as far as the photo's edges let it. `most` is the
// largest factor.
PreviewZoom Turned(const PreviewZoom& zoom, const Box& client, const Box& whole, double notches,
                   int x, int y, double most);

// The zoom after the photo was pulled by so many pixels; its edges stay outside `client` where it
// is larger than that.
PreviewZoom Pulled(const PreviewZoom& zoom, const Box& client, const Box& whole, int dx, int dy);

}  // namespace tarnwell
