#pragma once

#include "imaging/pixel_array.h"

namespace tarnwell {

class PendingEvents;
struct PixelBuffer;

inline constexpr int kThumbnailSide = 320;

struct ThumbnailSize {
  int width = 0;
  int height = 0;
};

// The preview's size for a photo of `width` x `height`: unchanged when both sides are below 320,
// else the longer side (the height of a square) is 320 and the other keeps the proportion, rounded
// half to even and at least 1.
ThumbnailSize ThumbnailSizeFor(int width, int height);

// `source` stretched to `size` by nearest neighbour: target column i takes source column
// floor((2i + 1) x w / (2 x tw)), rows alike. Null when memory does not suffice.
Picture StretchPicture(const PixelView& source, ThumbnailSize size);

// The thumbnail of a photo, StretchPicture to ThumbnailSizeFor.
Picture ThumbnailOf(const PixelView& photo);

// Rebuilds the preview picThumb from picSource, centred, and draws its shadow. Does nothing when
// picSource is empty.
void MakeThumbnail(PixelBuffer& buffer, PendingEvents& events);

// Draws the soft shadow of a centred thumbnail of `size` into `container`, 320 x 320 pixels that
// hold the background. A shadow falls only in a direction in which the thumbnail is below 320.
void DarkenShadow(MutablePixelView container, ThumbnailSize size);

}  // namespace tarnwell
