#include "ui/look/smooth_scale.h"

#include <cmath>
#include <vector>

namespace tarnwell {
namespace {

// Between which two source pixels a target pixel lies, and how far (0 to 256) towards the second.
struct Tap {
  int first = 0;
  int second = 0;
  int weight = 0;
};

Tap TapAt(int target, int target_size, int source_size) {
  const double at = (target + 0.5) * source_size / target_size - 0.5;
  const double held = std::clamp(at, 0.0, source_size - 1.0);
  const int first = static_cast<int>(held);
  return {first, std::min(first + 1, source_size - 1),
          static_cast<int>(std::lround((held - first) * 256))};
}

}  // namespace

void DrawSmooth(MutablePixelView pixels, const Box& box, const PixelView& picture) {
  if (picture.empty() || box.empty()) return;
  const Box area = Intersection(box, {0, 0, pixels.width, pixels.height});
  std::vector<Tap> columns;
  for (int x = area.x; x < area.right(); ++x) {
    columns.push_back(TapAt(x - box.x, box.width, picture.width));
  }
  for (int y = area.y; y < area.bottom(); ++y) {
    const Tap row = TapAt(y - box.y, box.height, picture.height);
    for (int x = area.x; x < area.right(); ++x) {
      const Tap& column = columns[x - area.x];
      const std::uint8_t* corners[4] = {
          picture.at(column.first, row.first), picture.at(column.second, row.first),
          picture.at(column.first, row.second), picture.at(column.second, row.second)};
      std::uint8_t* pixel = pixels.at(x, y);
      for (int channel = kBlue; channel <= kRed; ++channel) {
        const int upper =
            corners[0][channel] * (256 - column.weight) + corners[1][channel] * column.weight;
        const int lower =
            corners[2][channel] * (256 - column.weight) + corners[3][channel] * column.weight;
        pixel[channel] = static_cast<std::uint8_t>(
            (upper * (256 - row.weight) + lower * row.weight + (1 << 15)) >> 16);
      }
    }
  }
}

}  // namespace tarnwell
