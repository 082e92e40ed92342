#pragma once

#include <string_view>

#include "imaging/bmp_header.h"
#include "imaging/pixel_array.h"
#include "platform/events.h"

namespace tarnwell {

// Whether the file holds every pixel of an uncompressed bitmap. The padding after the last row may
// be missing.
bool HasAllPlainPixels(std::string_view bytes, const BmpHeader& header);

// Fills `pixels`, of the header's size, from an uncompressed bitmap that has all its pixels. False
// when `go_on` ended it.
bool ReadPlainPixels(std::string_view bytes, const BmpHeader& header, MutablePixelView pixels,
                     const GoOn& go_on);

}  // namespace tarnwell
