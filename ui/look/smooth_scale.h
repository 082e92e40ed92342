#pragma once

#include "imaging/pixel_array.h"
#include "ui/look/box.h"

namespace tarnwell {

// Draws `picture`, stretched to `box`, into `pixels`: bilinear, with the outermost pixels held at
// the edges; at half the size and below, means of the pixels that a target pixel covers. For
// showing pictures on dense screens; nothing that is saved goes through here.
void DrawSmooth(MutablePixelView pixels, const Box& box, const PixelView& picture);

}  // namespace tarnwell
