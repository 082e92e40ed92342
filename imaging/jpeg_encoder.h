#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/events.h"

namespace tarnwell {

// Rows of blue, green, red bytes, and perhaps a fourth that does not matter; `step` leads from a
// row to the one below and may be negative.
struct BgrRows {
  const std::uint8_t* top = nullptr;
  std::ptrdiff_t step = 0;
  int width = 0;  // 1 to kMaxSide, like the height
  int height = 0;
  int pixel_bytes = 3;  // 3 or 4
};

// The content of a baseline JPEG file of the picture, YCbCr, at `quality` 0 to 100, the chrominance
// at half the resolution both ways where `half_chrominance`. Every platform gives the same bytes.
// Empty when `go_on` ends it. Throws std::bad_alloc when memory does not suffice.
std::string EncodeJpeg(const BgrRows& rows, int quality, bool half_chrominance,
                       const GoOn& go_on = ToTheEnd);

}  // namespace tarnwell
