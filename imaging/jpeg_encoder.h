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
// at half the resolution both ways where `half_chrominance`, with the recommended Huffman tables.
// Every platform gives the same bytes. Throws std::bad_alloc when memory does not suffice.
std::string EncodeJpeg(const BgrRows& rows, int quality, bool half_chrominance);

// The same pixels with Huffman tables fitted to the picture, which make the file smaller, and in
// stripes that up to `threads` threads encode; the file is the same for any number of them. Empty
// when `go_on`, asked on the calling thread, ends it. Throws likewise.
std::string EncodeJpegInStripes(const BgrRows& rows, int quality, bool half_chrominance,
                                int threads, const GoOn& go_on = ToTheEnd);

}  // namespace tarnwell
