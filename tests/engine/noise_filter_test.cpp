#include "engine/noise_filter.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <vector>

#include "tests/reference/naive_correction.h"

namespace tarnwell {
namespace {

struct Way {
  const char* name;
  NoiseWay way;
  Instructions instructions;
};
constexpr Way kWays[] = {
    {"colours, plain", {NoiseWay::kColors, false}, Instructions::kPlain},
    {"colours, AVX2", {NoiseWay::kColors, false}, Instructions::kAvx2},
    {"neighbours, plain", {NoiseWay::kNeighbors, false}, Instructions::kPlain},
    {"neighbours, AVX2", {NoiseWay::kNeighbors, false}, Instructions::kAvx2},
    {"quiet first, plain", {NoiseWay::kColors, true}, Instructions::kPlain},
    {"quiet first, AVX2", {NoiseWay::kColors, true}, Instructions::kAvx2},
};

PixelArray Naive(const PixelArray& picture, const NoiseSettings& settings) {
  const naive::NoiseRule rule = {settings.radius, settings.threshold, settings.darkness_weighting};
  PixelArray smooth = picture;
  for (int x = 0; x < picture.width(); ++x) {
    for (int y = 0; y < picture.height(); ++y) {
      SetPixel(smooth.mutable_view(), x, y,
               naive::FilterNoise(picture, x, y, rule, PixelAt(picture.view(), x, y)));
    }
  }
  return smooth;
}

// Every way that the processor and the limit allow, its pieces in a shuffled order.
void ExpectEveryWayToBeNaive(const PixelArray& picture, const NoiseSettings& settings) {
  SCOPED_TRACE(testing::Message() << "radius " << settings.radius << ", threshold "
                                  << settings.threshold << (settings.darkness_weighting ? "d" : "")
                                  << ", " << picture.width() << " x " << picture.height());
  const PixelArray expected = Naive(picture, settings);
  std::mt19937 random(1);
  for (const auto& [name, way, instructions] : kWays) {
    const int limit = NoiseRule(settings).highest_limit();
    if (way.sums == NoiseWay::kColors && !NoiseByColors::Suits(settings.radius, limit)) continue;
    if (way.quiet_first && !(limit > 1 && QuietPixels::Suits(settings.radius, limit))) continue;
    if (instructions == Instructions::kAvx2 && BestInstructions() != instructions) continue;
    PixelArray actual = picture;
    const NoiseFilter filter(picture.view(), settings, way, instructions);
    std::vector<int> pieces(filter.piece_count());
    std::iota(pieces.begin(), pieces.end(), 0);
    std::shuffle(pieces.begin(), pieces.end(), random);
    for (const int piece : pieces) {
      ASSERT_TRUE(filter.Smooth(filter.piece(piece), actual.mutable_view()));
    }
    ASSERT_TRUE(actual == expected) << name;
  }
}

TEST(NoiseFilterTest, EveryWayGivesTheSameAsTheNaiveForm) {
  unsigned seed = 1;
  for (int radius = 1; radius <= 12; ++radius) {
    // Thresholds at which another kernel or another number of vectors takes over, and fractions.
    for (const double threshold : {1.5, 7.65, 8.0, 8.25, 16.4, 31.9, 64.0, 64.5, 306.0, 250000.0}) {
      const bool weighted = ++seed % 3 == 0;
      const auto picture = NoisyPicture(5 + seed % 41, 1 + seed % 13, seed,
                                        2 + std::min(static_cast<int>(threshold) / 8, 40));
      ExpectEveryWayToBeNaive(*picture, {radius, threshold, weighted});
    }
  }
}

TEST(NoiseFilterTest, EveryWayGivesTheSameOnEverySmallSize) {
  for (int width = 1; width <= 9; ++width) {
    for (int height = 1; height <= 7; ++height) {
      ExpectEveryWayToBeNaive(*NoisyPicture(width, height, width, 3), {2, 7.65, height % 2 == 0});
    }
  }
  for (const int width : {31, 32, 33, 63, 64, 65, 97}) {
    ExpectEveryWayToBeNaive(*NoisyPicture(width, 5, width, 3), {3, 9.5, false});
  }
}

TEST(NoiseFilterTest, EveryWayGivesTheSameWithLargeDiscs) {
  // Flat pictures fill the counts of one colour and the sums of 16 bits; from radius 102 on a
  // window may hold more pixels than 15 bits count.
  for (const int noise : {0, 3}) {
    ExpectEveryWayToBeNaive(*NoisyPicture(70, 45, 3, noise), {31, 7.65, false});
    ExpectEveryWayToBeNaive(*NoisyPicture(150, 12, 4, noise), {50, 7.65, true});
    ExpectEveryWayToBeNaive(*NoisyPicture(30, 20, 5, noise), {120, 12.0, false});
  }
  ExpectEveryWayToBeNaive(*NoisyPicture(70, 45, 3), {40, 306.0, false});
}

TEST(NoiseFilterTest, ColoursAtTheEndsOfTheScale) {
  auto picture = RandomPixels(40, 20, 5);
  for (std::size_t i = 0; i < picture->view().byte_count(); ++i) {
    std::uint8_t& byte = picture->mutable_view().data[i];
    byte = static_cast<std::uint8_t>(byte % 2 ? 255 - byte % 8 : byte % 8);
  }
  for (const double threshold : {7.65, 20.0, 765.0}) {
    ExpectEveryWayToBeNaive(*picture, {6, threshold, false});
  }
}

TEST(NoiseFilterTest, PixelsThatAreJustMoved) {
  // Where one channel alone differs, by as much as moves most, and in about as many neighbours as
  // it takes to move a pixel by half a level, a pixel is easily taken for one that stays. The last
  // row is a piece of its own, so that its neighbours are known best.
  std::mt19937 random(7);
  for (int i = 0; i < 6; ++i) {
    const int channel = i % 3, change = i % 2 == 0 ? 4 : -4;
    const unsigned percent = 60 + random() % 20;
    PixelArray picture(70, 33);
    for (std::size_t at = 0; at < picture.view().byte_count(); at += kBytesPerPixel) {
      std::uint8_t* pixel = picture.mutable_view().data + at;
      pixel[kBlue] = 90, pixel[kGreen] = 140, pixel[kRed] = 200;
      if (random() % 100 < percent)
        pixel[channel] = static_cast<std::uint8_t>(pixel[channel] + change);
    }
    ExpectEveryWayToBeNaive(picture, {9, 7.65, false});
  }
}

TEST(NoiseFilterTest, PiecesCoverThePictureAndAreSmallForCostlyDiscs) {
  const PixelArray picture(300, 90);
  for (const NoiseSettings& settings :
       {NoiseSettings{4, 7.65, false}, {50, 7.65, false}, {378, 306, false}, {2000, 765, true}}) {
    const NoiseFilter filter(picture.view(), settings);
    std::vector<int> covered(picture.view().pixel_count());
    for (int i = 0; i < filter.piece_count(); ++i) {
      const PicturePiece piece = filter.piece(i);
      for (int y = piece.top; y < piece.bottom; ++y) {
        for (int x = piece.left; x < piece.right; ++x) ++covered[y * 300 + x];
      }
    }
    EXPECT_EQ(std::count(covered.begin(), covered.end(), 1), 300 * 90);
  }
  EXPECT_GT(NoiseFilter(picture.view(), {378, 306, false}).piece_count(), 100);
}

}  // namespace
}  // namespace tarnwell
