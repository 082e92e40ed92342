#pragma once

#include <cstdint>
#include <cstring>

#include "imaging/pixel_array.h"

namespace tarnwell {

// Four pixels of a row as one vector.
typedef std::uint32_t FourPixels __attribute__((vector_size(4 * kBytesPerPixel)));

inline FourPixels LoadFour(const std::uint8_t* pixels) {
  FourPixels four;
  std::memcpy(&four, pixels, sizeof(four));
  return four;
}

inline void StoreFour(FourPixels four, std::uint8_t* pixels) {
  std::memcpy(pixels, &four, sizeof(four));
}

// Four columns of four pixels each.
struct PixelSquare {
  FourPixels columns[4];
};

// The pixels of four rows, of which `step` bytes lead to the next.
inline PixelSquare LoadColumns(const std::uint8_t* row, std::ptrdiff_t step) {
  const FourPixels a = LoadFour(row), b = LoadFour(row + step);
  const FourPixels c = LoadFour(row + 2 * step), d = LoadFour(row + 3 * step);
  // Two columns of two rows each.
  const FourPixels ab01 = __builtin_shufflevector(a, b, 0, 4, 1, 5);
  const FourPixels ab23 = __builtin_shufflevector(a, b, 2, 6, 3, 7);
  const FourPixels cd01 = __builtin_shufflevector(c, d, 0, 4, 1, 5);
  const FourPixels cd23 = __builtin_shufflevector(c, d, 2, 6, 3, 7);
  return {__builtin_shufflevector(ab01, cd01, 0, 1, 4, 5),
          __builtin_shufflevector(ab01, cd01, 2, 3, 6, 7),
          __builtin_shufflevector(ab23, cd23, 0, 1, 4, 5),
          __builtin_shufflevector(ab23, cd23, 2, 3, 6, 7)};
}

}  // namespace tarnwell
