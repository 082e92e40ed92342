#pragma once

#include <string_view>

#include "imaging/bmp_header.h"
#include "imaging/pixel_array.h"
#include "platform/events.h"

namespace tarnwell {

// Whether the run-length data can be the picture's. Two bytes define at most 255 pixels; a picture
// that is larger than its data could fill was never drawn, and is refused before it costs memory.
// Up to a million pixels cost little and may be left out by the data as it likes.
bool IsPlausibleRle(std::string_view bytes, const BmpHeader& header);

// Fills `pixels`, of the header's size, from RLE4 or RLE8 data. Pixels that the data leaves out get
// colour 0; what reaches past the end of a row is dropped. False when the data breaks off before
// the picture is complete and without the code for its end, or when `go_on` ended it; `pixels` is
// then filled in part.
bool ReadRlePixels(std::string_view bytes, const BmpHeader& header, MutablePixelView pixels,
                   const GoOn& go_on);

}  // namespace tarnwell
