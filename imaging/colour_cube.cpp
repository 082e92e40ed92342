#include "imaging/colour_cube.h"

namespace tarnwell {
namespace {

constexpr int kLast = ColourCube::kSide - 1;

// A level of 0 to 255 on an axis of the cube: between `first` and the sample behind it, `part` of
// 255 of the way.
struct Place {
  int first;
  int part;
};

Place PlaceOf(int level) {
  const int scaled = level * kLast;
  const int first = scaled / 255;
  return first == kLast ? Place{kLast - 1, 255} : Place{first, scaled % 255};
}

constexpr int kRedStep = ColourCube::kSide * ColourCube::kSide;
constexpr int kGreenStep = ColourCube::kSide;

std::uint64_t Between(std::uint64_t a, std::uint64_t b, int part) {
  return a * static_cast<unsigned>(255 - part) + b * static_cast<unsigned>(part);
}

}  // namespace

ColourCube::ColourCube() {
  samples_.reserve(static_cast<std::size_t>(kSide) * kSide * kSide);
  const auto level = [](int at) { return static_cast<Level>((at * 65535 + kLast / 2) / kLast); };
  for (int red = 0; red < kSide; ++red) {
    for (int green = 0; green < kSide; ++green) {
      for (int blue = 0; blue < kSide; ++blue) {
        samples_.push_back({level(red), level(green), level(blue)});
      }
    }
  }
}

void ColourCube::Convert(std::uint8_t* pixels, std::size_t count) const {
  constexpr int kChannels[] = {kRed, kGreen, kBlue};
  constexpr std::uint64_t kParts = 255 * 255 * 255;
  for (std::uint8_t* pixel = pixels; pixel != pixels + count * kBytesPerPixel;
       pixel += kBytesPerPixel) {
    const Place red = PlaceOf(pixel[kRed]);
    const Place green = PlaceOf(pixel[kGreen]);
    const Place blue = PlaceOf(pixel[kBlue]);
    const Colour* at = &samples_[static_cast<std::size_t>(red.first * kRedStep +
                                                          green.first * kGreenStep + blue.first)];
    for (int channel = 0; channel < 3; ++channel) {
      const auto along_blue = [&](int step) {
        return Between(at[step][channel], at[step + 1][channel], blue.part);
      };
      const auto along_green = [&](int step) {
        return Between(along_blue(step), along_blue(step + kGreenStep), green.part);
      };
      const std::uint64_t level = Between(along_green(0), along_green(kRedStep), red.part) / kParts;
      pixel[kChannels[channel]] = static_cast<std::uint8_t>((level + 128) / 257);
    }
  }
}

}  // namespace tarnwell
