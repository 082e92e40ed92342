#include "engine/focus_filter.h"

#include <algorithm>

namespace tarnwell {
namespace {

// The first of `centre` - distance, + step, ... that is not below 0.
int FirstInside(int centre, const FocusSettings& settings) {
  int first = centre - settings.distance;
  if (first < 0) first += (-first + settings.step - 1) / settings.step * settings.step;
  return first;
}

}  // namespace

NeighbourMeans FocusMeans(const PixelView& pixels, int x, int y, const FocusSettings& settings) {
  const int first_x = FirstInside(x, settings);
  const int first_y = FirstInside(y, settings);
  const int last_x = std::min(x + settings.distance, pixels.width - 1);
  const int last_y = std::min(y + settings.distance, pixels.height - 1);
  std::int64_t totals[3] = {0, 0, 0};
  std::int64_t count = 0;
  for (int row = first_y; row <= last_y; row += settings.step) {
    for (int column = first_x; column <= last_x; column += settings.step) {
      if (column == x && row == y) continue;
      const std::uint8_t* pixel = pixels.at(column, row);
      totals[kBlue] += pixel[kBlue];
      totals[kGreen] += pixel[kGreen];
      totals[kRed] += pixel[kRed];
      ++count;
    }
  }
  const double divisor = count == 0 ? 1e-14 : static_cast<double>(count);
  return {{static_cast<double>(totals[kBlue]) / divisor,
           static_cast<double>(totals[kGreen]) / divisor,
           static_cast<double>(totals[kRed]) / divisor}};
}

}  // namespace tarnwell
