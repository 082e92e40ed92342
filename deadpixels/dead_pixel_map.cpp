#include "deadpixels/dead_pixel_map.h"

#include <algorithm>

namespace tarnwell {
namespace {

constexpr int kUnits = 64;  // in which deviations are kept
constexpr std::uint16_t kFarthest = 65535;

void Lower(std::uint16_t& least, double deviation) {
  const double units = std::min(deviation * kUnits, double{kFarthest});
  least = std::min(least, static_cast<std::uint16_t>(units));
}

}  // namespace

double StuckLimit(int shots) { return 4 + 5.0 / shots; }

int MapValue(double deviation, int shots) {
  const double value = kStuckThreshold * deviation / StuckLimit(shots);
  if (value < kStuckThreshold) return static_cast<int>(value);
  return static_cast<int>(std::clamp(value, kStuckThreshold + 1.0, 255.0));
}

bool DeadPixelEvidence::Add(const PixelView& shot, ShotKind kind, const GoOn& go_on) {
  Weakest& weakest = kind == ShotKind::kDark ? dark_ : light_;
  weakest.up.resize(shot.pixel_count(), kFarthest);
  weakest.down.resize(shot.pixel_count(), kFarthest);
  ++weakest.shots;
  return MeasureDeviations(
      shot,
      [&](int x, int y, const Deviation& deviation) {
        const std::size_t pixel = static_cast<std::size_t>(y) * width_ + x;
        Lower(weakest.up[pixel], deviation.up);
        Lower(weakest.down[pixel], deviation.down);
      },
      go_on);
}

int DeadPixelEvidence::ValueOf(const Weakest& weakest, std::size_t pixel) {
  if (weakest.shots == 0) return 0;
  const double units = std::max(weakest.up[pixel], weakest.down[pixel]);
  return MapValue(units / kUnits, weakest.shots);
}

PixelArray DeadPixelEvidence::Map() const {
  PixelArray map(width_, height_);
  std::uint8_t* bytes = map.mutable_view().data;
  const std::size_t count = map.view().pixel_count();
  for (std::size_t pixel = 0; pixel < count; ++pixel, bytes += kBytesPerPixel) {
    const int value = std::max(ValueOf(dark_, pixel), ValueOf(light_, pixel));
    bytes[kBlue] = bytes[kGreen] = bytes[kRed] = static_cast<std::uint8_t>(value);
  }
  return map;
}

std::size_t CountStuck(const PixelView& map) {
  std::size_t count = 0;
  for (std::size_t pixel = 0; pixel < map.pixel_count(); ++pixel) {
    count += map.data[pixel * kBytesPerPixel + kRed] > kStuckThreshold;
  }
  return count;
}

}  // namespace tarnwell
