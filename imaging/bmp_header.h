#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/status.h"

namespace tarnwell {

enum class BmpCompression { kNone, kRle4, kRle8 };

// Where one channel lies in a pixel of 16 or 32 bits: `bits` wide (0: the channel is missing, and
// reads as 0), `shift` bits above the lowest.
struct BmpChannel {
  int shift = 0;
  int bits = 0;
};

// Four bytes as they stand in a picture: blue, green, red, unused.
using BmpColour = std::array<std::uint8_t, 4>;

// What the headers of a bitmap file say, checked.
struct BmpHeader {
  int width = 0;   // 1..kMaxSide
  int height = 0;  // 1..kMaxSide
  bool top_down = false;
  int bits_per_pixel = 0;  // 1, 4, 8, 16, 24 or 32
  BmpCompression compression = BmpCompression::kNone;
  BmpChannel blue, green, red;           // at 16 and 32 bits per pixel
  std::array<BmpColour, 256> palette{};  // at up to 8 bits; colours that the file lacks are black
  std::uint64_t pixel_offset = 0;        // of the pixel data; may lie past the end of the file

  // The picture's row that is stored as row `stored` of the file.
  int PictureRow(int stored) const { return top_down ? stored : height - 1 - stored; }
};

// Reads the headers, masks and palette of a bitmap file. Failures as in DecodeBmp, the messages
// still without the file's name.
Result<BmpHeader> ParseBmpHeader(std::string_view bytes);

}  // namespace tarnwell
