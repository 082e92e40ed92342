#pragma once

#include "imaging/pixel_array.h"

namespace tarnwell {

struct HuePicker;

// Takes the mean colour of `photo` into swatch 0 and recomputes swatch 1. Any size of the photo
// will do; an empty one changes nothing.
void GetHueIn(HuePicker& hue, const PixelView& photo);

}  // namespace tarnwell
