#pragma once

#include <cstdint>
#include <memory>
#include <random>

#include "imaging/pixel_array.h"

namespace tarnwell {

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
