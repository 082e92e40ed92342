#include "deadpixels/test_shot.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "engine/histogram.h"

namespace tarnwell {
namespace {

// How many of the counted pixels have a brightness (0 to 765) up to `level`.
std::uint64_t CountUpTo(const BrightnessHistogram& histogram, int level) {
  std::uint64_t count = 0;
  for (int i = 0; i <= level; ++i) count += histogram[i];
  return count;
}

// How far two pixels differ in colour, whatever their brightness. A few far outliers, which are
// what is looked for, must not decide: hence the bound.
int ColourStep(const std::uint8_t* a, const std::uint8_t* b) {
  constexpr int kFarthest = 24;
  const int red = (a[kRed] - a[kGreen]) - (b[kRed] - b[kGreen]);
  const int blue = (a[kBlue] - a[kGreen]) - (b[kBlue] - b[kGreen]);
  return std::min(std::abs(red) + std::abs(blue), kFarthest);
}

}  // namespace

ShotKind KindOfShot(const PixelView& shot) {
  if (shot.empty()) return ShotKind::kNeither;
  const BrightnessHistogram histogram = CountBrightness(shot);
  const std::uint64_t most = shot.pixel_count() - shot.pixel_count() / 10;
  const int third = kHighestSum / 3;
  if (CountUpTo(histogram, third) >= most) return ShotKind::kDark;
  const std::uint64_t light = shot.pixel_count() - CountUpTo(histogram, 2 * third - 1);
  return light >= most ? ShotKind::kLight : ShotKind::kNeither;
}

bool SharesColours(const PixelView& shot) {
  // Independent colours differ as much between neighbours as over a distance.
  constexpr int kDistance = 16;
  constexpr int kRowStep = 8;  // a sample of the rows is enough
  std::uint64_t near = 0;
  std::uint64_t far = 0;
  for (int y = 0; y < shot.height; y += kRowStep) {
    for (int x = 0; x + kDistance < shot.width; ++x) {
      near += ColourStep(shot.at(x, y), shot.at(x + 1, y));
      far += ColourStep(shot.at(x, y), shot.at(x + kDistance, y));
    }
  }
  return near * 10 < far * 7;
}

}  // namespace tarnwell
