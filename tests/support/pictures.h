#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <ostream>
#include <random>

#include "imaging/pixel_array.h"

namespace tarnwell {

// A pixel in the order people write it.
struct TestPixel {
  int red = 0;
  int green = 0;
  int blue = 0;
  bool operator==(const TestPixel&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const TestPixel& pixel) {
  return out << '(' << pixel.red << ", " << pixel.green << ", " << pixel.blue << ')';
}

inline TestPixel PixelAt(const PixelView& pixels, int x, int y) {
  const std::uint8_t* bytes = pixels.at(x, y);
  return {bytes[kRed], bytes[kGreen], bytes[kBlue]};
}

inline void SetPixel(MutablePixelView pixels, int x, int y, const TestPixel& pixel) {
  std::uint8_t* bytes = pixels.at(x, y);
  bytes[kRed] = static_cast<std::uint8_t>(pixel.red);
  bytes[kGreen] = static_cast<std::uint8_t>(pixel.green);
  bytes[kBlue] = static_cast<std::uint8_t>(pixel.blue);
}

// A picture of `width` columns from its pixels, row by row.
inline std::shared_ptr<PixelArray> PictureOf(int width, std::initializer_list<TestPixel> rows) {
  auto picture = std::make_shared<PixelArray>(width, static_cast<int>(rows.size()) / width);
  int i = 0;
  for (const TestPixel& pixel : rows) {
    SetPixel(picture->mutable_view(), i % width, i / width, pixel);
    ++i;
  }
  return picture;
}

// A picture of one grey.
inline std::shared_ptr<PixelArray> Grey(int width, int height, int level) {
  auto picture = std::make_shared<PixelArray>(width, height);
  for (int i = 0; i < width * height; ++i) {
    SetPixel(picture->mutable_view(), i % width, i / width, {level, level, level});
  }
  return picture;
}

// A picture like a photo's: a smooth ramp of colours with noise of `noise` levels on it.
inline std::shared_ptr<PixelArray> NoisyPicture(int width, int height, unsigned seed,
                                                int noise = 40) {
  std::mt19937 random(seed);
  auto picture = std::make_shared<PixelArray>(width, height);
  const auto level = [&](int ramp) {
    const int value = ramp + static_cast<int>(random() % (2 * noise + 1)) - noise;
    return value < 0 ? 0 : value > 255 ? 255 : value;
  };
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      SetPixel(picture->mutable_view(), x, y,
               {level(30 + 180 * x / width), level(20 + 200 * y / height), level(100)});
    }
  }
  return picture;
}

// Pixels with a value of its own in every byte, the unused channel included; the same for the same
// seed on every platform.
inline std::shared_ptr<PixelArray> RandomPixels(int width, int height, std::uint32_t seed = 1) {
  auto pixels = std::make_shared<PixelArray>(width, height);
  std::mt19937 generator(seed);
  const MutablePixelView view = pixels->mutable_view();
  for (std::size_t i = 0; i < view.byte_count(); ++i) {
    view.data[i] = static_cast<std::uint8_t>(generator() >> 24);
  }
  return pixels;
}

}  // namespace tarnwell
