#include "engine/histogram.h"

#include "engine/rounding.h"

namespace tarnwell {

BrightnessHistogram CountBrightness(const PixelView& pixels) {
  BrightnessHistogram histogram = {};
  const std::uint8_t* pixel = pixels.data;
  const std::uint8_t* const end = pixel + pixels.byte_count();
  for (; pixel != end; pixel += kBytesPerPixel) {
    ++histogram[pixel[kBlue] + pixel[kGreen] + pixel[kRed]];
  }
  return histogram;
}

int TopLevel(const BrightnessHistogram& histogram) {
  std::int16_t top = 255;
  for (int level = kHighestSum; level >= 0; --level) {
    if (histogram[level] > 0) {
      RoundInto(top, level / 3.0);
      break;
    }
  }
  return top;
}

int AutomaticWhitePoint(const BrightnessHistogram& histogram, int width, int height) {
  const double target = (width * 0.1) * (height * 0.1);
  std::uint64_t passed = 0;
  for (int level = kHighestSum; level >= 0; --level) {
    passed += histogram[level];
    if (static_cast<double>(passed) > target) return level;
  }
  return -1;
}

}  // namespace tarnwell
