#include "engine/histogram.h"

#include "engine/rounding.h"

namespace tarnwell {

BrightnessHistogram CountBrightness(const PixelView& pixels) {
  // Neighbours are often equally bright: counters of their own, so that none waits for the one
  // before to be written.
  constexpr std::size_t kLanes = 4;
  BrightnessHistogram lanes[kLanes] = {};
  const std::uint8_t* pixel = pixels.data;
  const std::size_t count = pixels.pixel_count();
  std::size_t i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    for (BrightnessHistogram& lane : lanes) {
      ++lane[SumOfChannels(pixel)];
      pixel += kBytesPerPixel;
    }
  }
  for (; i < count; ++i, pixel += kBytesPerPixel) ++lanes[0][SumOfChannels(pixel)];
  for (std::size_t lane = 1; lane < kLanes; ++lane) {
    for (int level = 0; level <= kHighestSum; ++level) lanes[0][level] += lanes[lane][level];
  }
  return lanes[0];
}

const BrightnessHistogram& PictureHistogram::counts() const {
  if (picture_) counts_ = CountBrightness(picture_->view());
  picture_ = nullptr;
  return counts_;
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

int AutomaticWhitePoint(const PictureHistogram& histogram) {
  const double target = (histogram.width() * 0.1) * (histogram.height() * 0.1);
  std::uint64_t passed = 0;
  for (int level = kHighestSum; level >= 0; --level) {
    passed += histogram.counts()[level];
    if (static_cast<double>(passed) > target) return level;
  }
  return -1;
}

}  // namespace tarnwell
