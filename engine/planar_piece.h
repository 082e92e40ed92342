#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "imaging/picture_piece.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// A piece of a picture and a margin around it, as far as it lies inside the picture, taken apart
// into planes of bytes: blue, green, red, and a fourth one that is 255 outside the picture and 0
// inside. To its left and right there are kBeyond columns more.
class PlanarPiece {
 public:
  static constexpr int kBeyond = 32;

  PlanarPiece(const PixelView& picture, const PicturePiece& piece, int margin);

  // In the blue plane; (x, y) are the picture's coordinates.
  const std::uint8_t* at(int x, int y) const {
    return bytes_.data() + (y - top_) * row_ + (x - left_);
  }
  std::ptrdiff_t row() const { return row_; }
  std::ptrdiff_t plane() const { return plane_; }

 private:
  int left_;
  int top_;
  std::ptrdiff_t row_;
  std::ptrdiff_t plane_;
  std::vector<std::uint8_t> bytes_;
};

}  // namespace tarnwell
