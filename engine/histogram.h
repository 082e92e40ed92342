#pragma once

#include <array>
#include <cstdint>
#include <utility>

#include "imaging/pixel_array.h"

namespace tarnwell {

inline constexpr int kHighestSum = 765;

// How many pixels have each brightness level red + green + blue, 0 to 765.
using BrightnessHistogram = std::array<std::uint32_t, kHighestSum + 1>;

BrightnessHistogram CountBrightness(const PixelView& pixels);

// The histogram of a picture, counted when it is first asked for: going over all pixels of an
// opened photo would keep its preview waiting, for what is often replaced before anybody looks.
class PictureHistogram {
 public:
  PictureHistogram() = default;  // of no picture
  explicit PictureHistogram(Picture picture)
      : width_(picture->width()), height_(picture->height()), picture_(std::move(picture)) {}

  int width() const { return width_; }  // of the picture; 0 when there is none
  int height() const { return height_; }
  const BrightnessHistogram& counts() const;

 private:
  int width_ = 0;
  int height_ = 0;
  mutable Picture picture_;  // null once it is counted
  mutable BrightnessHistogram counts_ = {};
};

// The highest level that occurs, divided by 3 and rounded half to even; 255 for an empty histogram.
int TopLevel(const BrightnessHistogram& histogram);

// The automatic white point: the level at which, counting down from 765, more than 1 % of the
// picture's pixels have been passed; -1 when there is no picture.
int AutomaticWhitePoint(const PictureHistogram& histogram);

}  // namespace tarnwell
