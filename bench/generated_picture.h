#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>

#include "imaging/pixel_array.h"

namespace tarnwell {

// A picture that costs a filter what a camera's photo costs: large soft areas, edges, fine
// structure in places, and noise everywhere, stronger in the dark and mostly the same in all three
// channels. The same for the same sides on every system.
class GeneratedPicture {
 public:
  static std::shared_ptr<PixelArray> Make(int width, int height) {
    auto picture = std::make_shared<PixelArray>(width, height);
    for (int y = 0; y < height; ++y) {
      std::uint8_t* pixel = picture->mutable_view().at(0, y);
      for (int x = 0; x < width; ++x, pixel += kBytesPerPixel) Paint(x, y, pixel);
    }
    return picture;
  }

  // About `megapixels` million pixels, 4 : 3.
  static std::shared_ptr<PixelArray> OfMegapixels(int megapixels) {
    int height = 1;
    while (height * 4 / 3 * height < megapixels * 1000000) ++height;
    return Make(height * 4 / 3, height);
  }

 private:
  // A number that looks random but depends on its arguments alone.
  static std::uint32_t Scramble(std::uint32_t x, std::uint32_t y, std::uint32_t layer) {
    std::uint32_t hash = x * 0x9E3779B1u ^ y * 0x85EBCA77u ^ layer * 0xC2B2AE3Du;
    hash = (hash ^ hash >> 15) * 0x2C1B3C6Du;
    hash = (hash ^ hash >> 12) * 0x297A2D39u;
    return hash ^ hash >> 15;
  }

  // Random levels 0 to 255 at the corners of squares of 2^`size` pixels, blended in between.
  static int Cloud(int x, int y, int size, std::uint32_t layer) {
    const std::uint32_t left = x >> size, top = y >> size;
    const int side = 1 << size, right_part = x & (side - 1), lower_part = y & (side - 1);
    const auto corner = [&](std::uint32_t dx, std::uint32_t dy) {
      return static_cast<int>(Scramble(left + dx, top + dy, layer) & 255);
    };
    const std::int64_t upper = corner(0, 0) * (side - right_part) + corner(1, 0) * right_part;
    const std::int64_t lower = corner(0, 1) * (side - right_part) + corner(1, 1) * right_part;
    return static_cast<int>((upper * (side - lower_part) + lower * lower_part) >> (2 * size));
  }

  // About normal, mean 0, standard deviation 74.
  static int Grain(int x, int y, std::uint32_t layer) {
    const std::uint32_t hash = Scramble(x, y, layer);
    return static_cast<int>((hash & 255) + (hash >> 8 & 255)) - 255 +
           static_cast<int>((hash >> 16 & 255) - (hash >> 24)) / 4;
  }

  static void Paint(int x, int y, std::uint8_t* pixel) {
    const bool object = Cloud(x, y, 8, 1) > 140;  // with a sharp outline
    const int base = Cloud(x, y, 10, 2) * 3 / 4 + (object ? 60 : 0);
    const int structure =
        Cloud(x, y, 9, 3) > 120 ? (Cloud(x, y, 3, 4) + Cloud(x, y, 1, 10) - 256) / 5 : 0;
    const int light = base + structure + Grain(x, y, 5) * (330 - base) / 6000;
    const int tint = Cloud(x, y, 10, 6) / 4 + (object ? 20 : -30);
    const auto level = [&](int value, std::uint32_t layer) {
      return static_cast<std::uint8_t>(std::clamp(value + Grain(x, y, layer) / 50, 0, 255));
    };
    pixel[kBlue] = level(light - tint / 2, 7);
    pixel[kGreen] = level(light, 8);
    pixel[kRed] = level(light + tint, 9);
  }
};

}  // namespace tarnwell
