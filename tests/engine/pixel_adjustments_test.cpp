#include "engine/pixel_adjustments.h"

#include <gtest/gtest.h>

#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

TEST(AdjustTonesTest, EachStepByHand) {
  struct Case {
    const char* name;
    AdjustmentSettings settings;
    TestPixel before;
    TestPixel after;
  };
  const auto with = [](auto&& change) {
    AdjustmentSettings settings;
    change(settings);
    return settings;
  };
  const Case cases[] = {
      {"nothing on", {}, {10, 20, 30}, {10, 20, 30}},
      {"black level stops at 0",
       with([](auto& s) { s.black_level = 15; }),
       {10, 20, 30},
       {0, 5, 15}},
      // 5 x 0.5 = 2.5 and 7 x 0.5 = 3.5 go to the even neighbour; the average of the starting sum
      // does not matter at multiplier 1.
      {"gain rounds half to even", with([](auto& s) { s.gain = 0.5; }), {5, 7, 9}, {2, 4, 4}},
      {"gain beyond 16 bits leaves the channel",
       with([](auto& s) { s.gain = 700; }),
       {46, 47, 0},
       {32200, 47, 0}},
      {"hue factors",
       with([](auto& s) {
         s.hue_factors = {0.5f, -0.25f, 0.0f};
       }),
       {100, 100, 100},
       {150, 75, 100}},
      {"white balance",
       with([](auto& s) {
         s.white_balance_offsets = {-0.5, 0.1, 0.25};
       }),
       {100, 100, 100},
       {50, 110, 125}},
      // Average 20: 20 + 2 x (10 - 20) = 0, 20, 40.
      {"saturation", with([](auto& s) { s.saturation_multiplier = 2; }), {10, 20, 30}, {0, 20, 40}},
      // The average is that of the starting sum (60 / 3), not of the brightened channels.
      {"saturation after gain",
       with([](auto& s) { s.gain = 2, s.saturation_multiplier = 0.5; }),
       {10, 20, 30},
       {20, 30, 40}},
      {"contrast",
       with([](auto& s) { s.contrast_factor = -0.5; }),
       {28, 128, 228},
       {-22, 128, 278}},
      {"contrast softens",
       with([](auto& s) { s.contrast_factor = 1; }),
       {28, 128, 228},
       {128, 128, 128}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    PixelValues pixel = {static_cast<std::int16_t>(c.before.blue),
                         static_cast<std::int16_t>(c.before.green),
                         static_cast<std::int16_t>(c.before.red)};
    AdjustTones(pixel, c.before.red + c.before.green + c.before.blue, c.settings);
    EXPECT_EQ((TestPixel{pixel.red, pixel.green, pixel.blue}), c.after);
  }
}

TEST(AdjustPixelsTest, FocusComparesWithNeighboursThatArePartlyCorrected) {
  // One row of three: amount 1 adds the distance from the neighbours' mean.
  const auto picture = PictureOf(3, {{100, 100, 100}, {110, 110, 110}, {90, 90, 90}});
  AdjustmentSettings settings;
  settings.focus = FocusSettings{1.0, 1, 1};
  for (int x = 0; x < 3; ++x) {
    FocusColumn(picture->mutable_view(), picture->view(), x, settings);
  }
  EXPECT_EQ(PixelAt(picture->view(), 0, 0).red, 90);   // 100 + (100 - 110)
  EXPECT_EQ(PixelAt(picture->view(), 1, 0).red, 130);  // 110 + (110 - (90 + 90) / 2)
  EXPECT_EQ(PixelAt(picture->view(), 2, 0).red, 50);   // 90 + (90 - 130)
}

TEST(AdjustPixelsTest, ClampsAtTheEndAndLeavesTheUnusedChannel) {
  const auto picture = PictureOf(1, {{200, 10, 100}});
  picture->mutable_view().at(0, 0)[kUnused] = 9;
  AdjustmentSettings settings;
  settings.contrast_factor = -1;
  AdjustPiece(picture->view(), picture->view(), {0, 0, 1, 1}, settings, nullptr,
              picture->mutable_view());
  EXPECT_EQ(PixelAt(picture->view(), 0, 0), (TestPixel{255, 0, 72}));
  EXPECT_EQ(picture->view().at(0, 0)[kUnused], 9);
}

TEST(ToneTableTest, GivesWhatTheStepsGive) {
  AdjustmentSettings tinted;
  tinted.black_level = 7;
  tinted.gain = 1.37;
  tinted.hue_factors = {0.3f, -0.1f, 0.05f};
  tinted.white_balance_offsets = {-0.2, 0.1, 0.15};
  tinted.saturation_multiplier = 1.8;
  tinted.contrast_factor = -0.35;
  AdjustmentSettings plain;
  plain.gain = 1.5;
  // Steps that leave 16 bits do not happen.
  AdjustmentSettings beyond = plain;
  beyond.gain = 400;
  beyond.saturation_multiplier = 300;
  beyond.contrast_factor = 700;
  const auto start = RandomPixels(61, 40, 1);
  for (const AdjustmentSettings& settings : {tinted, plain, beyond}) {
    const ToneTable table(settings);
    // The second time with channels that another filter has moved away from the starting sum.
    for (const auto& values : {start, RandomPixels(61, 40, 2)}) {
      PixelArray expected(61, 40), actual(61, 40);
      AdjustPiece(values->view(), start->view(), {0, 0, 61, 40}, settings, nullptr,
                  expected.mutable_view());
      AdjustPiece(values->view(), start->view(), {0, 0, 61, 40}, settings, &table,
                  actual.mutable_view());
      EXPECT_TRUE(actual == expected) << "gain " << settings.gain;
    }
  }
}

TEST(FocusMeansTest, LooksOnlyInsideThePictureAndStepsFromTheFarCorner) {
  const auto picture = NoisyPicture(7, 6, 3);
  for (const FocusSettings settings :
       {FocusSettings{0, 1, 1}, {0, 3, 2}, {0, 4, 3}, {0, 9, 1}, {0, 2, 5}}) {
    for (int x = 0; x < 7; ++x) {
      for (int y = 0; y < 6; ++y) {
        double total = 0;
        int count = 0;
        for (int dx = -settings.distance; dx <= settings.distance; dx += settings.step) {
          for (int dy = -settings.distance; dy <= settings.distance; dy += settings.step) {
            if ((dx == 0 && dy == 0) || !picture->view().Contains(x + dx, y + dy)) continue;
            total += PixelAt(picture->view(), x + dx, y + dy).green;
            ++count;
          }
        }
        const double mean = count == 0 ? 0 : total / count;
        ASSERT_EQ(FocusMeans(picture->view(), x, y, settings).channel[kGreen], mean)
            << "distance " << settings.distance << ", step " << settings.step << ", at " << x
            << ", " << y;
      }
    }
  }
}

}  // namespace
}  // namespace tarnwell
