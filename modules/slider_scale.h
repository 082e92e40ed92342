#pragma once

#include "modules/module_table.h"

namespace tarnwell {

// The value at knob position `position` (0 to 182).
int ValueAtPosition(SliderScale scale, int position);

// The knob position for `value`, rounded half to even. Whole pixels are coarser or finer than whole
// values, so the value at that position can differ from `value` by one unit, or two on a scale
// with several units to a pixel.
int PositionOfValue(SliderScale scale, int value);

}  // namespace tarnwell
