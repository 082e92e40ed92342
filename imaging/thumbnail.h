#pragma once

#include <cstdint>

#include "imaging/picture_size.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

class PendingEvents;
struct PixelBuffer;

inline constexpr int kThumbnailSide = 320;

// All channels of the container's background: a neutral grey, dark enough for a white photo to
// stand out and light enough for its shadow to show.
inline constexpr std::uint8_t kContainerGrey = 192;

// The preview's size for a photo of `width` x `height`: unchanged when both sides are below 320,
// else the longer side (the height of a square) is 320 and the other keeps the proportion, rounded
// half to even and at least 1.
PictureSize ThumbnailSizeFor(int width, int height);

// `source` stretched to `size` by nearest neighbour: target column i takes source column
// floor((2i + 1) x w / (2 x tw)), rows alike. Null when memory does not suffice.
Picture StretchPicture(const PixelView& source, PictureSize size);

// The thumbnail of a photo, StretchPicture to ThumbnailSizeFor.
Picture ThumbnailOf(const PixelView& photo);

// Rebuilds the preview picThumb from picSource, centred and visible, draws its shadow where that is
// shown, lets pending events run and offers the tip about it. Does nothing, and gives false, when
// picSource is empty or memory does not suffice.
bool MakeThumbnail(PixelBuffer& buffer, PendingEvents& events);

// Darkens the soft shadow of a centred thumbnail of `size` into `container`, which is 320 x 320
// pixels and holds the background. The shadow falls only in a direction in which the thumbnail is
// below 320; the pixels under the thumbnail stay as they are.
void DarkenShadow(MutablePixelView container, PictureSize size);

}  // namespace tarnwell
