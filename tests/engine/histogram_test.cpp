#include "engine/histogram.h"

#include <gtest/gtest.h>

#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

TEST(HistogramTest, CountsTheSumOfTheChannels) {
  const auto picture = PictureOf(2, {{0, 0, 0}, {255, 255, 255}, {1, 2, 3}, {3, 2, 1}});
  const BrightnessHistogram histogram = CountBrightness(picture->view());
  EXPECT_EQ(histogram[0], 1u);
  EXPECT_EQ(histogram[6], 2u);
  EXPECT_EQ(histogram[765], 1u);
}

TEST(HistogramTest, TopLevelIsAThirdOfTheHighestLevelRoundedHalfToEven) {
  struct Case {
    int highest;  // -1: an empty histogram
    int top;
  };
  for (const Case c :
       {Case{-1, 255}, {0, 0}, {1, 0}, {2, 1}, {4, 1}, {5, 2}, {764, 255}, {765, 255}}) {
    BrightnessHistogram histogram = {};
    if (c.highest >= 0) histogram[c.highest] = 1;
    EXPECT_EQ(TopLevel(histogram), c.top) << "highest level " << c.highest;
  }
}

TEST(HistogramTest, WhitePointIsWhereMoreThanOnePercentHasPassed) {
  // 100 x 100 pixels: the target is 100, and exactly 100 does not pass it.
  BrightnessHistogram histogram = {};
  histogram[700] = 60;
  histogram[650] = 40;
  histogram[600] = 1;
  histogram[10] = 9899;
  EXPECT_EQ(AutomaticWhitePoint(histogram, 100, 100), 600);
  histogram[650] = 41;
  EXPECT_EQ(AutomaticWhitePoint(histogram, 100, 100), 650);
  EXPECT_EQ(AutomaticWhitePoint(BrightnessHistogram{}, 100, 100), -1);
  // Counts that a 16-bit total could not hold.
  histogram = {};
  histogram[500] = 40000;
  histogram[400] = 200000000;
  EXPECT_EQ(AutomaticWhitePoint(histogram, 20000, 20000), 400);
}

}  // namespace
}  // namespace tarnwell
