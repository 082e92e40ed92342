#include "deadpixels/repair_dead_pixels.h"

#include "engine/rounding.h"

namespace tarnwell {
namespace {

constexpr int kFarthest = 100;  // pixels searched in each direction

struct Direction {
  int dx;
  int dy;
};
constexpr Direction kDirections[] = {{-1, 0}, {0, -1}, {1, 0}, {0, 1}};

// The nearest pixel from (x, y) in `direction` whose map value is below the threshold, or null.
const std::uint8_t* NearestSound(const PixelView& pixels, const PixelView& map, int threshold,
                                 int x, int y, Direction direction) {
  for (int k = 1; k <= kFarthest; ++k) {
    const int at_x = x + k * direction.dx;
    const int at_y = y + k * direction.dy;
    if (!pixels.Contains(at_x, at_y)) return nullptr;
    if (map.at(at_x, at_y)[kRed] < threshold) return pixels.at(at_x, at_y);
  }
  return nullptr;
}

void RepairPixel(MutablePixelView pixels, const PixelView& map, int threshold, int x, int y) {
  int sums[3] = {0, 0, 0};
  int count = 0;
  for (const Direction direction : kDirections) {
    const std::uint8_t* sound = NearestSound(pixels, map, threshold, x, y, direction);
    if (!sound) continue;
    for (int channel = 0; channel < 3; ++channel) sums[channel] += sound[channel];
    ++count;
  }
  if (count == 0) return;
  for (int channel = 0; channel < 3; ++channel) {
    pixels.at(x, y)[channel] =
        static_cast<std::uint8_t>(RoundHalfToEven(static_cast<double>(sums[channel]) / count));
  }
}

}  // namespace

void RepairDeadPixels(MutablePixelView pixels, const PixelView& map, int threshold) {
  // A repaired pixel never serves another one, since its map value is above the threshold; so the
  // order does not matter, and rows are the order of memory.
  for (int y = 0; y < pixels.height; ++y) {
    for (int x = 0; x < pixels.width; ++x) {
      if (map.at(x, y)[kRed] > threshold) RepairPixel(pixels, map, threshold, x, y);
    }
  }
}

}  // namespace tarnwell
