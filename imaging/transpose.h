#pragma once

#include "imaging/picture_piece.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// Copies the pixels (x, y) of `piece` of `from` to (y, x) of `to`, all four bytes. `to` is as wide
// as `from` is high, and the other way round; they do not overlap.
void Transpose(const PixelView& from, const PicturePiece& piece, MutablePixelView to);

}  // namespace tarnwell
