#include "imaging/transpose.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace tarnwell {
namespace {

// Squares of pixels whose lines all stay in the nearest cache while they are turned.
constexpr int kSquare = 16;

// Pixels of a row that are turned together with those of three more rows.
constexpr int kLanes = 4;
typedef std::uint32_t Lanes __attribute__((vector_size(kLanes * kBytesPerPixel)));

inline Lanes Load(const std::uint8_t* bytes) {
  Lanes lanes;
  std::memcpy(&lanes, bytes, sizeof(lanes));
  return lanes;
}

inline void Store(Lanes lanes, std::uint8_t* bytes) { std::memcpy(bytes, &lanes, sizeof(lanes)); }

// The kLanes x kLanes pixels at (x, y).
inline void TransposeLanes(const PixelView& from, int x, int y, MutablePixelView to) {
  const Lanes a = Load(from.at(x, y)), b = Load(from.at(x, y + 1));
  const Lanes c = Load(from.at(x, y + 2)), d = Load(from.at(x, y + 3));
  // Two columns of two rows each.
  const Lanes ab01 = __builtin_shufflevector(a, b, 0, 4, 1, 5);
  const Lanes ab23 = __builtin_shufflevector(a, b, 2, 6, 3, 7);
  const Lanes cd01 = __builtin_shufflevector(c, d, 0, 4, 1, 5);
  const Lanes cd23 = __builtin_shufflevector(c, d, 2, 6, 3, 7);
  Store(__builtin_shufflevector(ab01, cd01, 0, 1, 4, 5), to.at(y, x));
  Store(__builtin_shufflevector(ab01, cd01, 2, 3, 6, 7), to.at(y, x + 1));
  Store(__builtin_shufflevector(ab23, cd23, 0, 1, 4, 5), to.at(y, x + 2));
  Store(__builtin_shufflevector(ab23, cd23, 2, 3, 6, 7), to.at(y, x + 3));
}

void TransposePixels(const PixelView& from, const PicturePiece& piece, MutablePixelView to) {
  for (int x = piece.left; x < piece.right; ++x) {
    for (int y = piece.top; y < piece.bottom; ++y) {
      std::memcpy(to.at(y, x), from.at(x, y), kBytesPerPixel);
    }
  }
}

void TransposeSquare(const PixelView& from, int left, int top, MutablePixelView to) {
  for (int x = left; x < left + kSquare; x += kLanes) {
    for (int y = top; y < top + kSquare; y += kLanes) TransposeLanes(from, x, y, to);
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
