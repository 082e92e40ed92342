#include "imaging/upright.h"

#include <algorithm>
#include <cstring>

namespace tarnwell {
namespace {

// Squares of pixels whose lines all stay in the nearest cache while they are turned.
constexpr int kSquare = 16;

// Which pixel of the stored picture a pixel of the upright one comes from: the first byte of the
// left top one, and how far apart (in bytes) neighbours to the right and below lie.
struct Source {
  const std::uint8_t* first;
  std::ptrdiff_t right;
  std::ptrdiff_t down;
};

Source SourceFor(const PixelView& stored, int orientation) {
  const bool exchanged = ExchangesSides(orientation);
  const bool from_right =
      orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
  const bool from_bottom =
      orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
  const auto row = static_cast<std::ptrdiff_t>(stored.stride());
  const std::ptrdiff_t across = from_right ? -kBytesPerPixel : kBytesPerPixel;
  const std::ptrdiff_t along = from_bottom ? -row : row;
  const std::uint8_t* first =
      stored.at(from_right ? stored.width - 1 : 0, from_bottom ? stored.height - 1 : 0);
  return exchanged ? Source{first, along, across} : Source{first, across, along};
}

void CopySquare(const Source& source, MutablePixelView upright, int left, int top) {
  const int right = std::min(left + kSquare, upright.width);
  const int bottom = std::min(top + kSquare, upright.height);
  for (int y = top; y < bottom; ++y) {
    const std::uint8_t* from = source.first + y * source.down + left * source.right;
    std::uint8_t* to = upright.at(left, y);
    for (int x = left; x < right; ++x, from += source.right, to += kBytesPerPixel) {
      std::memcpy(to, from, kBytesPerPixel);
    }
  }
}

}  // namespace

bool ExchangesSides(int orientation) { return orientation >= 5 && orientation <= 8; }

Picture TurnUpright(const Picture& picture, int orientation, const GoOn& go_on) {
  if (orientation <= 1 || orientation > 8) return picture;
  const PixelView stored = picture->view();
  const bool exchanged = ExchangesSides(orientation);
  const auto upright = TryMakePixels(exchanged ? stored.height : stored.width,
                                     exchanged ? stored.width : stored.height);
  if (!upright) return nullptr;
  const Source source = SourceFor(stored, orientation);
  for (int top = 0; top < upright->height(); top += kSquare) {
    if (!go_on(1.0 * top / upright->height())) return nullptr;
    for (int left = 0; left < upright->width(); left += kSquare) {
      CopySquare(source, upright->mutable_view(), left, top);
    }
  }
  return upright;
}

}  // namespace tarnwell
