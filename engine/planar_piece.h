#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "imaging/picture_piece.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// A piece of a picture and a margin around it, as far as it lies inside the picture, taken apart
// into planes of bytes: blue, green, red, each as Level gives it, and a fourth one that has all
// bits outside the picture and none inside. To its left and right there are kBeyond columns more.
class PlanarPiece {
 public:
  static constexpr int kBeyond = 32;
  // Signed, because the magnitude of a saturated signed difference is one instruction.
  static constexpr std::int8_t Level(std::uint8_t value) {
    return static_cast<std::int8_t>(value - 128);
  }

  PlanarPiece(const PixelView& picture, const PicturePiece& piece, int margin);

  // In the blue plane; (x, y) are the picture's coordinates.
  const std::int8_t* at(int x, int y) const {
    return bytes_.data() + (y - top_) * row_ + (x - left_);
  }
  std::ptrdiff_t row() const { return row_; }
  std::ptrdiff_t plane() const { return plane_; }

 private:
  int left_;
  int top_;
  std::ptrdiff_t row_;
  std::ptrdiff_t plane_;
  std::vector<std::int8_t> bytes_;
};

}  // namespace tarnwell
