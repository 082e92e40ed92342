#include "engine/noise_filter.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "engine/rounding.h"

namespace tarnwell {

int DiscHalfWidth(int radius, int dy) {
  // (radius + 0.5)^2 is radius^2 + radius + 0.25, and whole numbers never fall between.
  const std::int64_t limit = std::int64_t{radius} * radius + radius - std::int64_t{dy} * dy;
  auto dx = static_cast<std::int64_t>(std::sqrt(static_cast<double>(limit)));
  while (dx * dx > limit) --dx;
  while ((dx + 1) * (dx + 1) <= limit) ++dx;
  return static_cast<int>(dx);
}

NoiseFilter::NoiseFilter(const PixelView& reference, const NoiseSettings& settings)
    : reference_(reference), settings_(settings) {
  const double side = 2.0 * settings.radius + 1;
  normaliser_ = side * side + 1;
  for (int dy = 0; dy <= settings.radius; ++dy) {
    half_widths_.push_back(DiscHalfWidth(settings.radius, dy));
  }
}

void NoiseFilter::AddRow(const std::uint8_t* centre, const std::uint8_t* row, int count, int limit,
                         Sums& sums) const {
  // 255 x 765 x 8192 still fits 32 bits, which vectors add twice as fast as 64.
  constexpr int kBlock = 8192;
  const int blue = centre[kBlue], green = centre[kGreen], red = centre[kRed];
  for (int first = 0; first < count; first += kBlock) {
    const int last = std::min(count, first + kBlock);
    std::int32_t a0 = 0, a1 = 0, a2 = 0, b0 = 0, b1 = 0, b2 = 0;
    for (int i = first; i < last; ++i) {
      const std::uint8_t* pixel = row + static_cast<std::size_t>(i) * kBytesPerPixel;
      const int d0 = pixel[kBlue] - blue, d1 = pixel[kGreen] - green, d2 = pixel[kRed] - red;
      const int difference = std::abs(d0) + std::abs(d1) + std::abs(d2);
      const int counts = difference < limit ? -1 : 0;  // all bits or none
      const int e0 = d0 & counts, e1 = d1 & counts, e2 = d2 & counts;
      a0 += e0, a1 += e1, a2 += e2;
      b0 += difference * e0, b1 += difference * e1, b2 += difference * e2;
    }
    sums.plain[0] += a0, sums.plain[1] += a1, sums.plain[2] += a2;
    sums.weighted[0] += b0, sums.weighted[1] += b1, sums.weighted[2] += b2;
  }
}

NoiseFilter::Pixel NoiseFilter::At(int x, int y) const {
  const std::uint8_t* centre = reference_.at(x, y);
  Pixel pixel = {centre[kBlue], centre[kGreen], centre[kRed]};
  double threshold = settings_.threshold;
  if (settings_.darkness_weighting) {
    const int sum = centre[kBlue] + centre[kGreen] + centre[kRed];
    const double darkness = 1 - sum / 765.0;
    threshold = threshold * darkness * 1.25;
  }
  if (threshold <= 0) return pixel;

  // A whole number is below the threshold exactly when it is below the threshold rounded up.
  const int limit = static_cast<int>(std::ceil(threshold));
  Sums sums;
  const int top = std::max(y - settings_.radius, 0);
  const int bottom = std::min(y + settings_.radius, reference_.height - 1);
  for (int row = top; row <= bottom; ++row) {
    const int half_width = half_widths_[std::abs(row - y)];
    const int left = std::max(x - half_width, 0);
    const int right = std::min(x + half_width, reference_.width - 1);
    // The pixel itself differs by 0 and so adds nothing to either sum.
    AddRow(centre, reference_.at(left, row), right - left + 1, limit, sums);
  }
  const auto blended = [&](int channel, std::int16_t& value) {
    const double change = (static_cast<double>(sums.plain[channel]) -
                           static_cast<double>(sums.weighted[channel]) / threshold) /
                          normaliser_;
    RoundInto(value, value + change);
  };
  blended(kBlue, pixel.blue);
  blended(kGreen, pixel.green);
  blended(kRed, pixel.red);
  return pixel;
}

}  // namespace tarnwell
