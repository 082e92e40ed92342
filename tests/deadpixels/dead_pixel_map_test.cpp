#include "deadpixels/dead_pixel_map.h"

#include <gtest/gtest.h>

#include "imaging/jpeg_encoder.h"
#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/pictures.h"
#include "tests/support/planted_shots.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

const GoOn kGoOn = [](double) { return true; };

Picture ThroughJpeg(const PixelArray& shot, int quality) {
  std::vector<std::uint8_t> rows;
  for (std::size_t i = 0; i < shot.view().pixel_count(); ++i) {
    const std::uint8_t* pixel = shot.view().data + i * kBytesPerPixel;
    rows.insert(rows.end(), pixel, pixel + 3);
  }
  const TempFolder folder;
  const std::string path = folder.Write(
      "a.jpg",
      EncodeJpeg({rows.data(), std::ptrdiff_t{3} * shot.width(), shot.width(), shot.height()},
                 quality, /*half_chrominance=*/true));
  const Result<Picture> decoded = MakeSystemPictureCodec()->Load(path);
  return decoded.ok() ? *decoded : nullptr;
}

struct Found {
  int right = 0;
  int wrong = 0;
};

// What the map of `shots` dark and as many light shots marks.
Found Assess(PlantedCamera& camera, int shots, int jpeg_quality = 0) {
  DeadPixelEvidence evidence(camera.width, camera.height);
  for (int i = 0; i < 2 * shots; ++i) {
    const bool dark = i % 2 == 0;
    Picture shot = camera.Shot(dark);
    if (jpeg_quality > 0) shot = ThroughJpeg(*shot, jpeg_quality);
    EXPECT_EQ(KindOfShot(shot->view()), dark ? ShotKind::kDark : ShotKind::kLight);
    EXPECT_TRUE(evidence.Add(shot->view(), KindOfShot(shot->view()), kGoOn));
  }
  const PixelArray map = evidence.Map();
  Found found;
  for (const PlantedPixel& pixel : camera.stuck) {
    found.right += map.view().at(pixel.x, pixel.y)[kRed] > kStuckThreshold;
  }
  found.wrong = static_cast<int>(CountStuck(map.view())) - found.right;
  return found;
}

TEST(DeadPixelMapTest, FindsWhatIsPlantedAndNothingElse) {
  const struct {
    double noise;
    int shots;
    int jpeg_quality;  // 0: a bitmap
    int least;         // of 48 that deviate by 60 levels and more
  } kCases[] = {
      {0, 1, 0, 48},  {5, 1, 0, 48},  {5, 3, 0, 48},  {10, 3, 0, 45},
      {2, 1, 95, 36}, {5, 3, 95, 30}, {5, 3, 80, 23},
  };
  for (const auto& row : kCases) {
    PlantedCamera camera(17);
    camera.noise = row.noise;
    camera.Plant(48, 60);
    const Found found = Assess(camera, row.shots, row.jpeg_quality);
    SCOPED_TRACE(testing::Message() << "noise " << row.noise << ", shots " << row.shots
                                    << ", quality " << row.jpeg_quality);
    EXPECT_GE(found.right, row.least);
    EXPECT_EQ(found.wrong, 0);
  }
}

// A glint, a star or a grain of dust is in one shot only.
TEST(DeadPixelMapTest, WhatOneShotShowsAloneIsNotStuck) {
  PlantedCamera camera(3);
  camera.Plant(40, 100);
  DeadPixelEvidence evidence(camera.width, camera.height);
  EXPECT_TRUE(evidence.Add(camera.Shot(true)->view(), ShotKind::kDark, kGoOn));
  camera.stuck.clear();
  EXPECT_TRUE(evidence.Add(camera.Shot(true)->view(), ShotKind::kDark, kGoOn));
  EXPECT_EQ(CountStuck(evidence.Map().view()), 0u);
}

// Where two stuck pixels share a block, neither may hide the other; the edges count as well.
TEST(DeadPixelMapTest, NeighboursAndEdgesAreFound) {
  PlantedCamera camera(5);
  camera.stuck = {{0, 0, true, 90, 90, 90},     {191, 127, true, 0, 200, 0},
                  {100, 100, true, 0, 0, 200},  {101, 100, true, 60, 60, 60},
                  {100, 103, true, 70, 70, 70}, {191, 0, false, 0, 90, 0}};
  const Found found = Assess(camera, 2);
  EXPECT_EQ(found.right, 6);
  EXPECT_EQ(found.wrong, 0);
}

TEST(DeadPixelMapTest, ValuesAreSharesOfTheLimitAndNeverTheThreshold) {
  const struct {
    double deviation;
    int shots;
    int value;
  } kCases[] = {{0, 1, 0},      {4.5, 1, 25},  {8.99, 1, 49}, {9, 1, 51},  {18, 1, 100},
                {1000, 1, 255}, {4.99, 5, 49}, {5, 5, 51},    {5.5, 5, 55}};
  for (const auto& row : kCases) {
    EXPECT_EQ(MapValue(row.deviation, row.shots), row.value) << row.deviation << ", " << row.shots;
  }
}

TEST(KindOfShotTest, NinePixelsOfTenDecide) {
  const struct {
    int level;    // of most pixels
    int another;  // of `count` pixels in a hundred
    int count;
    ShotKind kind;
  } kCases[] = {{85, 255, 10, ShotKind::kDark},   {85, 255, 11, ShotKind::kNeither},
                {86, 0, 0, ShotKind::kNeither},   {170, 0, 10, ShotKind::kLight},
                {170, 0, 11, ShotKind::kNeither}, {169, 255, 0, ShotKind::kNeither}};
  for (const auto& row : kCases) {
    PixelArray shot(10, 10);
    for (int i = 0; i < 100; ++i) {
      const int level = i < row.count ? row.another : row.level;
      SetPixel(shot.mutable_view(), i % 10, i / 10, {level, level, level});
    }
    EXPECT_EQ(KindOfShot(shot.view()), row.kind) << row.level << ", " << row.count;
  }
  EXPECT_EQ(KindOfShot({}), ShotKind::kNeither);
}

}  // namespace
}  // namespace tarnwell
