#pragma once

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include "imaging/pixel_array.h"

namespace tarnwell {

// A pixel of a camera's sensor that is hot (too bright in the dark) or dead (too dark in the
// light), by so many levels in each channel.
struct PlantedPixel {
  int x;
  int y;
  bool hot;
  int blue;
  int green;
  int red;
};

// A camera with stuck pixels that takes test shots: dark ones with a glow at one side, light ones
// that fall off towards the corners, all with normally distributed noise that is new in every shot.
class PlantedCamera {
 public:
  int width = 192;
  int height = 128;
  double noise = 2;  // standard deviation in levels, a third of it shared by the channels
  std::vector<PlantedPixel> stuck;

  explicit PlantedCamera(unsigned seed) : random_(seed) {}

  // Plants `count` pixels, hot and dead in turn, that deviate by `least` to 200 levels in one
  // channel or, every fourth, in all.
  void Plant(int count, int least) {
    for (int i = 0; i < count; ++i) {
      const int kind = (i / 2) % 4;
      const int level = least + static_cast<int>(random_() % (201 - least));
      const auto in = [&](int channel) { return kind == channel || kind == 3 ? level : 0; };
      stuck.push_back({static_cast<int>(random_() % width), static_cast<int>(random_() % height),
                       i % 2 == 0, in(0), in(1), in(2)});
    }
  }

  std::shared_ptr<PixelArray> Shot(bool dark) {
    auto shot = std::make_shared<PixelArray>(width, height);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) Expose(shot->mutable_view(), x, y, dark);
    }
    for (const PlantedPixel& pixel : stuck) {
      if (pixel.hot != dark) continue;
      const int sign = pixel.hot ? 1 : -1;
      std::uint8_t* bytes = shot->mutable_view().at(pixel.x, pixel.y);
      for (int c = 0; c < 3; ++c) {
        const int off[] = {pixel.blue, pixel.green, pixel.red};
        bytes[c] = static_cast<std::uint8_t>(std::clamp(bytes[c] + sign * off[c], 0, 255));
      }
    }
    return shot;
  }

 private:
  void Expose(MutablePixelView shot, int x, int y, bool dark) {
    const double right = static_cast<double>(x) / width - 0.5;
    const double low = static_cast<double>(y) / height - 0.5;
    const double level = dark ? 8 + 8 * right : 240 - 60 * (right * right + low * low);
    const double shared = Normal();
    for (int c = 0; c < 3; ++c) {
      const double grain = noise * (0.58 * shared + 0.82 * Normal());
      shot.at(x, y)[c] =
          static_cast<std::uint8_t>(std::clamp(std::lround(level + grain), 0L, 255L));
    }
  }

  // The sum of twelve uniform numbers, the same with every standard library.
  double Normal() {
    double sum = -6;
    for (int i = 0; i < 12; ++i) sum += random_() / 4294967296.0;
    return sum;
  }

  std::mt19937 random_;
};

}  // namespace tarnwell
