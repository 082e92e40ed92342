#pragma once

#include <string_view>

#include "imaging/bmp_header.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// Whether the file holds every pixel of an uncompressed bitmap. The padding after the last row may
// be missing.
bool HasAllPlainPixels(std::string_view bytes, const BmpHeader& header);

// Fills `pixels`, of the header's size, from an uncompressed bitmap that has all its pixels.
void ReadPlainPixels(std::string_view bytes, const BmpHeader& header, MutablePixelView pixels);

}  // namespace tarnwell
