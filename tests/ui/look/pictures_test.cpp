#include <algorithm>
#include <gtest/gtest.h>

#include "modules/frm_modules.h"
#include "ui/look/dialog_filter.h"
#include "ui/look/histogram_shape.h"
#include "ui/look/hue_wheel.h"
#include "ui/look/smooth_scale.h"

namespace tarnwell {
namespace {

TEST(HistogramBars, AFlatHistogramGivesAFlatPictureAtEveryWidth) {
  BrightnessHistogram histogram;
  histogram.fill(7);
  for (const int width : {1, 2, 100, 296, 765, 766, 767, 2000}) {
    const std::vector<double> bars = HistogramBars(histogram, width);
    EXPECT_EQ(std::ranges::count(bars, 1.0), width) << width;
  }
  EXPECT_TRUE(HistogramBars(histogram, 0).empty());
}

TEST(HistogramBars, ClippedEndsDoNotFlattenTheRest) {
  BrightnessHistogram histogram = {};
  histogram[0] = 100000;
  histogram[300] = 10;
  histogram[301] = 5;
  const std::vector<double> bars = HistogramBars(histogram, 766);
  EXPECT_EQ(bars[0], 1);
  EXPECT_EQ(bars[300], 1);
  EXPECT_EQ(bars[301], 0.5);
  EXPECT_EQ(bars[302], 0);
}

TEST(HistogramBars, NothingMeasured) {
  EXPECT_EQ(std::ranges::count(HistogramBars({}, 50), 0.0), 50);
  EXPECT_FALSE(LimitsOf({}, FirstStartPanel()).known);
}

TEST(ToneLimits, OnePercentIsPassedFromEitherEnd) {
  BrightnessHistogram histogram = {};
  histogram[10] = 10;  // exactly 1 % does not pass
  histogram[20] = 1;
  histogram[400] = 978;
  histogram[700] = 11;
  const ToneLimits limits = LimitsOf(histogram, FirstStartPanel());
  EXPECT_TRUE(limits.known);
  EXPECT_EQ(limits.black, 20);
  EXPECT_EQ(limits.white, 700);
}

TEST(ToneLimits, SetByHandInAnOpenModule) {
  BrightnessHistogram histogram = {};
  histogram[400] = 5;
  frmModules panel = FirstStartPanel();
  PicCheck_Click(panel, kWhiteLimitByHand);
  PicCheck_Click(panel, kBlackLimitByHand);
  SetSliderValue(panel, 0, 20);
  SetSliderValue(panel, 1, 10);
  EXPECT_DOUBLE_EQ(LimitsOf(histogram, panel).white, 80 * 7.65);
  EXPECT_DOUBLE_EQ(LimitsOf(histogram, panel).black, 76.5);
  panel.open[kSmartPhotoCorrection] = 0;
  EXPECT_EQ(LimitsOf(histogram, panel).white, 400);
  EXPECT_EQ(LimitsOf(histogram, panel).black, 400);
}

TEST(DrawSmooth, AtItsOwnSizeThePictureIsCopied) {
  PixelArray picture(5, 4), target(9, 9);
  for (std::size_t i = 0; i < picture.view().byte_count(); ++i) {
    picture.mutable_view().data[i] = static_cast<std::uint8_t>(i * 37);
  }
  DrawSmooth(target.mutable_view(), {2, 3, 5, 4}, picture.view());
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 5; ++x) {
      for (const int channel : {kBlue, kGreen, kRed}) {
        EXPECT_EQ(target.view().at(x + 2, y + 3)[channel], picture.view().at(x, y)[channel]);
      }
    }
  }
}

TEST(DrawSmooth, BetweenTwoPixelsLieTheirMixtures) {
  PixelArray picture(2, 1), target(4, 1);
  picture.mutable_view().at(1, 0)[kRed] = 200;
  DrawSmooth(target.mutable_view(), {0, 0, 4, 1}, picture.view());
  // Centres at -0.25 (held at 0), 0.25, 0.75 and 1.25 (held at 1).
  EXPECT_EQ(target.view().at(0, 0)[kRed], 0);
  EXPECT_EQ(target.view().at(1, 0)[kRed], 50);
  EXPECT_EQ(target.view().at(2, 0)[kRed], 150);
  EXPECT_EQ(target.view().at(3, 0)[kRed], 200);
}

TEST(DrawSmooth, IsCutAtTheEdges) {
  PixelArray picture(3, 3), target(2, 2);
  DrawSmooth(target.mutable_view(), {-20, -20, 60, 60}, picture.view());
  DrawSmooth(target.mutable_view(), {5, 5, 10, 10}, picture.view());
  DrawSmooth(target.mutable_view(), {0, 0, 0, 4}, picture.view());
  DrawSmooth(target.mutable_view(), {0, 0, 2, 2}, PixelView());
}

TEST(HueWheel, RedRightGreenUpperLeftBlueLowerLeftGroundInTheCorners) {
  const Picture wheel = HueWheel(106, Hex(0x123456));
  const auto strongest = [&](int x, int y) {
    const std::uint8_t* p = wheel->view().at(x, y);
    return std::max_element(p, p + 3) - p;
  };
  EXPECT_EQ(strongest(100, 53), kRed);
  EXPECT_EQ(strongest(30, 12), kGreen);
  EXPECT_EQ(strongest(30, 94), kBlue);
  EXPECT_EQ(wheel->view().at(0, 0)[kGreen], 0x34);
}

TEST(DialogFilter, PairsOfDescriptionAndPatterns) {
  using Entries = std::vector<FilterEntry>;
  EXPECT_EQ(ParseFilter("JPEG Image (*.jpg)|*.jpg"), (Entries{{"JPEG Image (*.jpg)", "*.jpg"}}));
  EXPECT_EQ(ParseFilter("a|*.a;*.b|c|*.*"), (Entries{{"a", "*.a;*.b"}, {"c", "*.*"}}));
  EXPECT_EQ(ParseFilter("a|*.a|alone"), (Entries{{"a", "*.a"}}));
  EXPECT_EQ(ParseFilter(""), Entries());
  EXPECT_EQ(DefaultExtension({"", "*.twp"}), "twp");
  EXPECT_EQ(DefaultExtension({"", "*.jpg;*.jpeg"}), "jpg");
  EXPECT_EQ(DefaultExtension({"", "*.*"}), "");
  EXPECT_EQ(DefaultExtension({"", "MAP.BMP"}), "");
}

}  // namespace
}  // namespace tarnwell
