#include "engine/planar_piece.h"

#include <algorithm>
#include <cstring>

namespace tarnwell {

PlanarPiece::PlanarPiece(const PixelView& picture, const PicturePiece& piece, int margin)
    : left_(std::max(piece.left - margin, 0) - kBeyond), top_(std::max(piece.top - margin, 0)) {
  const int right = std::min(piece.right + margin, picture.width) + kBeyond;
  const int bottom = std::min(piece.bottom + margin, picture.height);
  row_ = right - left_;
  plane_ = row_ * (bottom - top_);
  bytes_.resize(static_cast<std::size_t>(4 * plane_));
  std::int8_t* const outside = bytes_.data() + 3 * plane_;
  std::memset(outside, 255, plane_);
  const int first = std::max(left_, 0);
  const int count = std::min(right, picture.width) - first;
  for (int y = top_; y < bottom; ++y) {
    const std::ptrdiff_t start = (y - top_) * row_ + (first - left_);
    const std::uint8_t* from = picture.at(first, y);
    std::int8_t* blue = bytes_.data() + start;
    std::int8_t* green = blue + plane_;
    std::int8_t* red = green + plane_;
    for (int i = 0; i < count; ++i) {
      blue[i] = Level(from[4 * i + kBlue]);
      green[i] = Level(from[4 * i + kGreen]);
      red[i] = Level(from[4 * i + kRed]);
    }
    std::memset(outside + start, 0, count);
  }
}

}  // namespace tarnwell
