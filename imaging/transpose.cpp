#include "imaging/transpose.h"

#include <algorithm>
#include <cstring>

#include "imaging/pixel_square.h"

namespace tarnwell {
namespace {

// Squares of pixels whose lines all stay in the nearest cache while they are turned.
constexpr int kSquare = 16;

void TransposePixels(const PixelView& from, const PicturePiece& piece, MutablePixelView to) {
  for (int x = piece.left; x < piece.right; ++x) {
    for (int y = piece.top; y < piece.bottom; ++y) {
      std::memcpy(to.at(y, x), from.at(x, y), kBytesPerPixel);
    }
  }
}

void TransposeSquare(const PixelView& from, int left, int top, MutablePixelView to) {
  const auto step = static_cast<std::ptrdiff_t>(from.stride());
  for (int x = left; x < left + kSquare; x += 4) {
    for (int y = top; y < top + kSquare; y += 4) {
      const PixelSquare square = LoadColumns(from.at(x, y), step);
      for (int i = 0; i < 4; ++i) StoreFour(square.columns[i], to.at(y, x + i));
    }
  }
}

}  // namespace

void Transpose(const PixelView& from, const PicturePiece& piece, MutablePixelView to) {
  for (int left = piece.left; left < piece.right; left += kSquare) {
    const int right = std::min(left + kSquare, piece.right);
    for (int top = piece.top; top < piece.bottom; top += kSquare) {
      const int bottom = std::min(top + kSquare, piece.bottom);
      if (right - left == kSquare && bottom - top == kSquare) {
        TransposeSquare(from, left, top, to);
      } else {
        TransposePixels(from, {left, top, right, bottom}, to);
      }
    }
  }
}

}  // namespace tarnwell
