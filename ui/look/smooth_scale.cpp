#include "ui/look/smooth_scale.h"

#include <array>
#include <cmath>
#include <vector>

namespace tarnwell {
namespace {

// Between which two source pixels a target pixel lies, and how far (0 to 256) towards the second.
struct Tap {
  int first = 0;
  int second = 0;
  int weight = 0;
};

Tap TapAt(int target, int target_size, int source_size) {
  const double at = (target + 0.5) * source_size / target_size - 0.5;
  const double held = std::clamp(at, 0.0, source_size - 1.0);
  const int first = static_cast<int>(held);
  return {first, std::min(first + 1, source_size - 1),
          static_cast<int>(std::lround((held - first) * 256))};
}

// A picture that is drawn much smaller gives each target pixel the mean of so many source pixels
// in each direction, spread over what it covers: enough for the eye, and quick on a large photo.
constexpr int kMostSamples = 4;

// Where the samples of one target pixel lie.
std::array<int, kMostSamples> SamplesAt(int target, int target_size, int source_size, int count) {
  std::array<int, kMostSamples> samples = {};
  for (int i = 0; i < count; ++i) {
    const double at = (target + (i + 0.5) / count) * source_size / target_size;
    samples[i] = std::clamp(static_cast<int>(at), 0, source_size - 1);
  }
  return samples;
}

void DrawReduced(MutablePixelView pixels, const Box& box, const PixelView& picture, int count) {
  const Box area = Intersection(box, {0, 0, pixels.width, pixels.height});
  std::vector<std::array<int, kMostSamples>> columns;
  for (int x = area.x; x < area.right(); ++x) {
    columns.push_back(SamplesAt(x - box.x, box.width, picture.width, count));
  }
  const int all = count * count;
  for (int y = area.y; y < area.bottom(); ++y) {
    const auto rows = SamplesAt(y - box.y, box.height, picture.height, count);
    for (int x = area.x; x < area.right(); ++x) {
      std::array<int, 3> sums = {};
      for (int row = 0; row < count; ++row) {
        for (int column = 0; column < count; ++column) {
          const std::uint8_t* sample = picture.at(columns[x - area.x][column], rows[row]);
          for (int channel = kBlue; channel <= kRed; ++channel) sums[channel] += sample[channel];
        }
      }
      std::uint8_t* pixel = pixels.at(x, y);
      for (int channel = kBlue; channel <= kRed; ++channel) {
        pixel[channel] = static_cast<std::uint8_t>((sums[channel] + all / 2) / all);
      }
    }
  }
}

}  // namespace

void DrawSmooth(MutablePixelView pixels, const Box& box, const PixelView& picture) {
  if (picture.empty() || box.empty()) return;
  // From half the size on, two pixels beside each other would leave out what lies between them.
  const int reduction = std::min(kMostSamples, picture.width / box.width);
  if (reduction >= 2) return DrawReduced(pixels, box, picture, reduction);
  const Box area = Intersection(box, {0, 0, pixels.width, pixels.height});
  std::vector<Tap> columns;
  for (int x = area.x; x < area.right(); ++x) {
    columns.push_back(TapAt(x - box.x, box.width, picture.width));
  }
  for (int y = area.y; y < area.bottom(); ++y) {
    const Tap row = TapAt(y - box.y, box.height, picture.height);
    for (int x = area.x; x < area.right(); ++x) {
      const Tap& column = columns[x - area.x];
      const std::uint8_t* corners[4] = {
          picture.at(column.first, row.first), picture.at(column.second, row.first),
          picture.at(column.first, row.second), picture.at(column.second, row.second)};
      std::uint8_t* pixel = pixels.at(x, y);
      for (int channel = kBlue; channel <= kRed; ++channel) {
        const int upper =
            corners[0][channel] * (256 - column.weight) + corners[1][channel] * column.weight;
        const int lower =
            corners[2][channel] * (256 - column.weight) + corners[3][channel] * column.weight;
        pixel[channel] = static_cast<std::uint8_t>(
            (upper * (256 - row.weight) + lower * row.weight + (1 << 15)) >> 16);
      }
    }
  }
}

}  // namespace tarnwell
