#include "deadpixels/deviations.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <span>

#include "deadpixels/test_shot.h"

namespace tarnwell {
namespace {

constexpr int kTile = 64;
constexpr int kJpegBlock = 8;
constexpr int kReach = 2;  // how far the surroundings of a pixel reach
constexpr double kLeastNoise = 1.5;

// What is measured of a pixel.
enum class Plane { kBlue, kGreen, kRed, kBrightness };

int LevelOf(const std::uint8_t* pixel, Plane plane) {
  if (plane != Plane::kBrightness) return pixel[static_cast<int>(plane)];
  return (29 * pixel[kBlue] + 150 * pixel[kGreen] + 77 * pixel[kRed] + 128) / 256;
}

// A piece of the shot; all but the last of a row or column are kTile wide and tall.
struct Tile {
  int x;
  int y;
  int width;
  int height;
};

// The noise of a tile as standard deviations, above and below the surroundings.
struct Noise {
  double up;
  double down;
};

// The tiles that divide `length`, each kTile long. What is left at the end goes to the last one, so
// that each has enough pixels to tell its noise.
int TileCount(int length) { return std::max(1, length / kTile); }
int TileLength(int length, int tile) {
  return tile + 1 < TileCount(length) ? kTile : length - tile * kTile;
}

// `at` in 0 to length - 1, reflected at the ends.
int Inside(int at, int length) {
  if (at < 0) at = -at;
  if (at >= length) at = 2 * (length - 1) - at;
  return std::clamp(at, 0, length - 1);
}

// The mean of the two middle ones of eight levels.
int MedianOfEight(std::array<int, 8>& levels) {
  constexpr int kSortingNetwork[][2] = {{0, 2}, {1, 3}, {4, 6}, {5, 7}, {0, 4}, {1, 5}, {2, 6},
                                        {3, 7}, {0, 1}, {2, 3}, {4, 5}, {6, 7}, {2, 4}, {3, 5},
                                        {1, 4}, {3, 6}, {1, 2}, {3, 4}, {5, 6}};
  for (const auto& [first, second] : kSortingNetwork) {
    const int low = std::min(levels[first], levels[second]);
    levels[second] = std::max(levels[first], levels[second]);
    levels[first] = low;
  }
  return (levels[3] + levels[4]) / 2;
}

// A JPEG block. A stuck pixel leaves waves in its block, at most of about its own size; so the
// pixel that leads its block by far is its centre.
struct BlockPeak {
  int lead;      // a difference of this size, or more, is such a centre
  double noise;  // the spread within the block, its outermost twentieth left out
};

// The differences of one plane in one tile, from their surroundings.
class TileDifferences {
 public:
  TileDifferences(const PixelView& shot, const Tile& tile, Plane plane)
      : width_(tile.width), height_(tile.height) {
    ReadLevels(shot, tile, plane);
    Subtract();
  }

  int at(int x, int y) const { return differences_[y * width_ + x]; }

  // The noise above (`sign` 1) or below (-1) the surroundings, as a standard deviation. Taken far
  // out, where a tail that is cut off at one side still shows its width, but not among the last
  // ones, which may be stuck pixels.
  double NoiseTowards(int sign) const {
    constexpr double kQuantile = 2.33;  // of 1 % in a normal distribution
    const std::size_t outliers = differences_.size() / 100 + 4;
    std::array<std::size_t, 256> counts = {};
    for (const int difference : differences_) ++counts[std::max(0, sign * difference)];
    std::size_t above = 0;
    int level = 255;
    while (level > 0 && (above += counts[level]) <= outliers) --level;
    return level / kQuantile;
  }

  // What one JPEG block shows besides noise; `x` and `y` are its corner.
  BlockPeak PeakOfBlock(int x, int y) const {
    constexpr double kQuantile = 1.96;  // of 5 % at both ends
    constexpr double kLead = 1.5;
    std::array<int, kJpegBlock * kJpegBlock> found;
    int count = 0;
    for (int row = y; row < std::min(y + kJpegBlock, height_); ++row) {
      for (int column = x; column < std::min(x + kJpegBlock, width_); ++column) {
        found[count++] = std::abs(at(column, row));
      }
    }
    std::sort(found.begin(), found.begin() + count, std::greater<>());
    const bool leads = count > 1 && found[0] > kLead * found[1];
    return {leads ? found[0] : 256, found[count / 20] / kQuantile};
  }

 private:
  void ReadLevels(const PixelView& shot, const Tile& tile, Plane plane) {
    stride_ = width_ + 2 * kReach;
    levels_.reserve(static_cast<std::size_t>(stride_) * (height_ + 2 * kReach));
    for (int y = -kReach; y < height_ + kReach; ++y) {
      const int row = Inside(tile.y + y, shot.height);
      for (int x = -kReach; x < width_ + kReach; ++x) {
        levels_.push_back(LevelOf(shot.at(Inside(tile.x + x, shot.width), row), plane));
      }
    }
  }

  void Subtract() {
    differences_.reserve(static_cast<std::size_t>(width_) * height_);
    const int far = kReach * stride_;
    for (int y = 0; y < height_; ++y) {
      const int* level = levels_.data() + (y + kReach) * stride_ + kReach;
      for (int x = 0; x < width_; ++x, ++level) {
        std::array<int, 8> around = {level[-far - 2], level[-far],   level[-far + 2],
                                     level[-2],       level[2],      level[far - 2],
                                     level[far],      level[far + 2]};
        differences_.push_back(*level - MedianOfEight(around));
      }
    }
  }

  int width_;
  int height_;
  int stride_ = 0;
  std::vector<int> levels_;  // with a frame of kReach around
  std::vector<int> differences_;
};

// Takes the stronger of what was found and this difference for each pixel of a JPEG block.
void MeasureBlock(const TileDifferences& differences, int left, int top, const Noise& tile_noise,
                  const Tile& tile, std::vector<Deviation>& deviations) {
  const BlockPeak block = differences.PeakOfBlock(left, top);
  for (int y = top; y < std::min(top + kJpegBlock, tile.height); ++y) {
    for (int x = left; x < std::min(left + kJpegBlock, tile.width); ++x) {
      const int difference = differences.at(x, y);
      const double least = std::abs(difference) >= block.lead ? 0 : block.noise;
      Deviation& deviation = deviations[static_cast<std::size_t>(y) * tile.width + x];
      deviation.up = std::max(deviation.up, difference / std::max(tile_noise.up, least));
      deviation.down = std::max(deviation.down, -difference / std::max(tile_noise.down, least));
    }
  }
}

// The deviations of a tile row by row, for each pixel the strongest of the planes.
void MeasureTile(const PixelView& shot, const Tile& tile, std::span<const Plane> planes,
                 std::vector<Deviation>& deviations) {
  deviations.assign(static_cast<std::size_t>(tile.width) * tile.height, {});
  for (const Plane plane : planes) {
    const TileDifferences differences(shot, tile, plane);
    const Noise noise = {std::max(kLeastNoise, differences.NoiseTowards(1)),
                         std::max(kLeastNoise, differences.NoiseTowards(-1))};
    for (int y = 0; y < tile.height; y += kJpegBlock) {
      for (int x = 0; x < tile.width; x += kJpegBlock) {
        MeasureBlock(differences, x, y, noise, tile, deviations);
      }
    }
  }
}

}  // namespace

bool MeasureDeviations(const PixelView& shot, const NoteDeviation& note, const GoOn& go_on) {
  static constexpr Plane kPlanes[] = {Plane::kBlue, Plane::kGreen, Plane::kRed, Plane::kBrightness};
  const std::span<const Plane> colours(kPlanes, 3);
  const std::span<const Plane> brightness(kPlanes + 3, 1);
  const std::span<const Plane> planes = SharesColours(shot) ? brightness : colours;

  std::vector<Deviation> deviations;
  const int rows = TileCount(shot.height);
  const int columns = TileCount(shot.width);
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      if (!go_on((row + static_cast<double>(column) / columns) / rows)) return false;
      const Tile tile = {column * kTile, row * kTile, TileLength(shot.width, column),
                         TileLength(shot.height, row)};
      MeasureTile(shot, tile, planes, deviations);
      const Deviation* deviation = deviations.data();
      for (int y = tile.y; y < tile.y + tile.height; ++y) {
        for (int x = tile.x; x < tile.x + tile.width; ++x) note(x, y, *deviation++);
      }
    }
  }
  return true;
}

}  // namespace tarnwell
