#pragma once

#include "engine/processor.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// Turns the HSV hue of every pixel in row `y` by `degrees` (any number, whole turns change
// nothing); saturation and value stay. The middle channel is computed in whole numbers and rounded
// half to even; a grey pixel has no hue and stays.
void RotateHueOfRow(MutablePixelView pixels, int y, int degrees,
                    Instructions instructions = BestInstructions());

}  // namespace tarnwell
