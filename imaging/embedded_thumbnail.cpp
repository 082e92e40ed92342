#include "imaging/embedded_thumbnail.h"

#include <algorithm>
#include <vector>

#include "imaging/jpeg_encoder.h"

namespace tarnwell {
namespace {

constexpr int kQualities[] = {85, 75, 60, 45, 30};

// Each pixel is the mean of this many times this many of the picture's, evenly spread.
constexpr int kSamples = 4;

// The side whose pixels a thumbnail pixel at `at` of `count` takes its sample `sample` from.
int SampleAt(int at, int sample, int count, int side) {
  const std::int64_t step = std::int64_t{2} * at * kSamples + 2 * sample + 1;
  return static_cast<int>(step * side / (std::int64_t{2} * count * kSamples));
}

std::vector<std::uint8_t> Shrunk(const PixelView& picture, int width, int height) {
  std::vector<std::uint8_t> shrunk(static_cast<std::size_t>(width) * height * 3);
  std::uint8_t* target = shrunk.data();
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x, target += 3) {
      int sums[3] = {0, 0, 0};
      for (int j = 0; j < kSamples; ++j) {
        const int row = SampleAt(y, j, height, picture.height);
        for (int i = 0; i < kSamples; ++i) {
          const std::uint8_t* pixel = picture.at(SampleAt(x, i, width, picture.width), row);
          for (int channel = 0; channel < 3; ++channel) sums[channel] += pixel[channel];
        }
      }
      for (int channel = 0; channel < 3; ++channel) {
        constexpr int kCount = kSamples * kSamples;
        target[channel] = static_cast<std::uint8_t>((sums[channel] + kCount / 2) / kCount);
      }
    }
  }
  return shrunk;
}

int Scaled(int side, int longest, int longest_side) {
  return static_cast<int>(
      std::max<std::int64_t>(1, (std::int64_t{2} * side * longest_side + longest) / (2 * longest)));
}

// Thumbnails come without the header that a file of its own has behind the start marker.
std::string WithoutHeader(const std::string& jpeg) {
  constexpr std::size_t kStart = 2, kHeader = 18;
  return jpeg.substr(0, kStart) + jpeg.substr(kStart + kHeader);
}

}  // namespace

EmbeddedThumbnail MakeEmbeddedThumbnail(const PixelView& picture, int longest_side,
                                        std::size_t most_bytes) {
  const int longest = std::max(picture.width, picture.height);
  const int side = std::min(longest_side, longest);
  EmbeddedThumbnail thumbnail;
  thumbnail.width = Scaled(picture.width, longest, side);
  thumbnail.height = Scaled(picture.height, longest, side);
  const std::vector<std::uint8_t> pixels = Shrunk(picture, thumbnail.width, thumbnail.height);
  const BgrRows rows = {pixels.data(), std::ptrdiff_t{3} * thumbnail.width, thumbnail.width,
                        thumbnail.height};
  for (const int quality : kQualities) {
    thumbnail.jpeg = WithoutHeader(EncodeJpeg(rows, quality, /*half_chrominance=*/true));
    if (thumbnail.jpeg.size() <= most_bytes) return thumbnail;
  }
  thumbnail.jpeg.clear();
  return thumbnail;
}

}  // namespace tarnwell
