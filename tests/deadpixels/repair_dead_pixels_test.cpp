#include "deadpixels/repair_dead_pixels.h"

#include <gtest/gtest.h>

#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

std::shared_ptr<PixelArray> MapOf(int width, const std::vector<int>& reds) {
  auto map = std::make_shared<PixelArray>(width, static_cast<int>(reds.size()) / width);
  for (std::size_t i = 0; i < reds.size(); ++i) {
    SetPixel(map->mutable_view(), static_cast<int>(i) % width, static_cast<int>(i) / width,
             {reds[i], 0, 0});
  }
  return map;
}

TEST(RepairDeadPixelsTest, TakesTheNearestSoundPixelOfEachDirection) {
  struct Case {
    const char* name;
    std::vector<int> map;
    int threshold;
    TestPixel repaired;  // the pixel in the middle
  };
  // The photo's reds, greens and blues:
  //    0  10  20
  //   30 255  50
  //   60  70  80
  const Case cases[] = {
      {"sound", {0, 0, 0, 0, 50, 0, 0, 0, 0}, 50, {255, 255, 255}},
      {"four neighbours", {0, 0, 0, 0, 51, 0, 0, 0, 0}, 50, {40, 40, 40}},
      // 30, 10, 70: 110 / 3 = 36.67
      {"a marked neighbour is no source", {0, 0, 0, 0, 99, 99, 0, 0, 0}, 50, {37, 37, 37}},
      // 30 and 70; at the threshold is neither marked nor a source.
      {"at the threshold", {0, 50, 0, 0, 99, 50, 0, 0, 0}, 50, {50, 50, 50}},
      // Above and left: (10 + 30) / 2
      {"two sources", {0, 0, 0, 0, 99, 99, 0, 99, 0}, 50, {20, 20, 20}},
      {"none: stays", {0, 99, 0, 99, 99, 99, 0, 99, 0}, 50, {255, 255, 255}},
      {"threshold 0: no source at all", {0, 0, 0, 0, 1, 0, 0, 0, 0}, 0, {255, 255, 255}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const auto photo = PictureOf(3, {{0, 0, 0},
                                     {10, 10, 10},
                                     {20, 20, 20},
                                     {30, 30, 30},
                                     {255, 255, 255},
                                     {50, 50, 50},
                                     {60, 60, 60},
                                     {70, 70, 70},
                                     {80, 80, 80}});
    RepairDeadPixels(photo->mutable_view(), MapOf(3, c.map)->view(), c.threshold);
    EXPECT_EQ(PixelAt(photo->view(), 1, 1), c.repaired);
  }
}

TEST(RepairDeadPixelsTest, MeansRoundHalfToEvenAndTheSearchEndsAtAHundred) {
  // Sound pixels 1 and 4 beside a marked one: 2.5 becomes 2.
  const auto photo = PictureOf(3, {{1, 1, 1}, {9, 9, 9}, {4, 4, 4}});
  RepairDeadPixels(photo->mutable_view(), MapOf(3, {0, 99, 0})->view(), 50);
  EXPECT_EQ(PixelAt(photo->view(), 1, 0).red, 2);

  for (const int distance : {100, 101}) {
    PixelArray row(distance + 1, 1);
    PixelArray map(distance + 1, 1);
    SetPixel(row.mutable_view(), 0, 0, {7, 7, 7});
    for (int x = 1; x <= distance; ++x) SetPixel(map.mutable_view(), x, 0, {255, 0, 0});
    SetPixel(row.mutable_view(), distance, 0, {200, 200, 200});
    RepairDeadPixels(row.mutable_view(), map.view(), 50);
    EXPECT_EQ(PixelAt(row.view(), distance, 0).red, distance == 100 ? 7 : 200);
  }
}

}  // namespace
}  // namespace tarnwell
