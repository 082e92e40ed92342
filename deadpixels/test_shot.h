#pragma once

#include "imaging/pixel_array.h"

namespace tarnwell {

// What a test shot shows: stuck pixels stand out bright in a dark one (taken with the lens covered)
// and dark in a light one (a white sheet, or the sky). Anything else says nothing about the sensor.
enum class ShotKind { kDark, kLight, kNeither };

// Dark or light, when nine pixels of ten are: below a third of full brightness, or above two
// thirds. An empty picture is neither.
ShotKind KindOfShot(const PixelView& shot);

// Whether the colours of neighbouring pixels were stored together, as JPEG files do. A stuck pixel
// then has coloured its neighbours too, and only the brightness tells where it lies.
bool SharesColours(const PixelView& shot);

}  // namespace tarnwell
