#include "imaging/transpose.h"

#include <algorithm>
#include <cstring>

namespace tarnwell {
namespace {

// Squares of pixels whose lines all stay in the nearest cache while they are turned.
constexpr int kSquare = 16;

}  // namespace

void Transpose(const PixelView& from, const PicturePiece& piece, MutablePixelView to) {
  for (int top = piece.top; top < piece.bottom; top += kSquare) {
    const int bottom = std::min(top + kSquare, piece.bottom);
    for (int left = piece.left; left < piece.right; left += kSquare) {
      const int right = std::min(left + kSquare, piece.right);
      for (int x = left; x < right; ++x) {
        for (int y = top; y < bottom; ++y) {
          std::memcpy(to.at(y, x), from.at(x, y), kBytesPerPixel);
        }
      }
    }
  }
}

}  // namespace tarnwell
