#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "imaging/pixel_array.h"

namespace tarnwell {

// How colours change, as a cube of samples: what becomes of every mixture of evenly spaced levels
// of red, green and blue. What lies between them is found between its eight neighbours, so that a
// slow conversion is asked a few thousand times and not for every pixel.
class ColourCube {
 public:
  using Level = std::uint16_t;          // 0 to 65535
  using Colour = std::array<Level, 3>;  // red, green, blue

  static constexpr int kSide = 33;

  // The colours of the samples, blue counting fastest, to be converted in place before use.
  ColourCube();
  std::vector<Colour>& samples() { return samples_; }

  // Converts blue, green and red of `count` pixels in place.
  void Convert(std::uint8_t* pixels, std::size_t count) const;

 private:
  std::vector<Colour> samples_;
};

}  // namespace tarnwell
