#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

#include "modules/frm_modules.h"
#include "ui/look/dialog_filter.h"
#include "ui/look/histogram_shape.h"
#include "ui/look/hue_wheel.h"
#include "ui/look/icons.h"
#include "ui/look/shapes.h"
#include "ui/look/smooth_scale.h"
#include "ui/look/theme.h"

namespace tarnwell {
namespace {

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

// Eight source pixels to one: the first, third, fifth and seventh of them count, counted from 0.
TEST(DrawSmooth, AMuchSmallerPictureIsMadeOfMeans) {
  PixelArray picture(16, 1), target(2, 1);
  const int levels[16] = {255, 0, 255, 100, 255, 200, 255, 100, 9, 8, 9, 8, 9, 8, 9, 7};
  for (int x = 0; x < 16; ++x) picture.mutable_view().at(x, 0)[kGreen] = levels[x];
  DrawSmooth(target.mutable_view(), {0, 0, 2, 1}, picture.view());
  EXPECT_EQ(target.view().at(0, 0)[kGreen], 100);
  EXPECT_EQ(target.view().at(1, 0)[kGreen], 8) << "7.75";
}

TEST(HueWheel, AMarkerBeyondTheDiscIsDrawnInIt) {
  const Point inside = MarkerInWheel({30, 40}, 100, 10);
  EXPECT_EQ(inside.x, 30);
  EXPECT_EQ(inside.y, 40);
  // 50 to the right of the middle and as far above: 40 remain, along the diagonal.
  const Point corner = MarkerInWheel({100, 0}, 100, 10);
  EXPECT_NEAR(corner.x, 50 + 40 / std::sqrt(2.0), 1e-9);
  EXPECT_NEAR(corner.y, 50 - 40 / std::sqrt(2.0), 1e-9);
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

constexpr Colour kWhite = Hex(0xFFFFFF);

// How much of the picture is covered, in whole pixels, where white is laid on black.
double Covered(const PixelArray& pixels) {
  double sum = 0;
  const PixelView view = pixels.view();
  for (std::size_t i = kGreen; i < view.byte_count(); i += kBytesPerPixel) {
    sum += view.data[i] / 255.0;
  }
  return sum;
}

template <typename Draw>
double AreaOf(const Draw& draw) {
  PixelArray pixels(60, 60);
  draw(pixels.mutable_view());
  return Covered(pixels);
}

TEST(Shapes, CoverTheAreaThatGeometrySays) {
  using View = MutablePixelView;
  const double pi = std::numbers::pi;
  const Line slanted = {{10, 10}, {40, 50}};
  EXPECT_EQ(AreaOf([](View p) { FillBox(p, {57, -3, 20, 5}, kWhite); }), 6);
  EXPECT_NEAR(AreaOf([](View p) { FillCircle(p, {30.3, 29.6}, 17.2, kWhite); }), pi * 295.8, 9);
  EXPECT_NEAR(AreaOf([](View p) { StrokeCircle(p, {30, 30}, 15, 3, kWhite); }), pi * 90, 3);
  EXPECT_NEAR(AreaOf([](View p) { FillRound(p, {5, 8, 40, 30}, 6, kWhite); }), 1169, 10);
  EXPECT_NEAR(AreaOf([](View p) { FillRound(p, {5, 8, 40, 30}, 0, kWhite, 0.5); }), 602, 6);
  EXPECT_NEAR(AreaOf([](View p) { StrokeRound(p, {5, 5, 40, 30}, 0, 2, kWhite); }), 264, 3);
  EXPECT_NEAR(AreaOf([&](View p) { StrokeLines(p, {&slanted, 1}, 4, kWhite); }), 212.6, 3);
  EXPECT_NEAR(AreaOf([](View p) { FillPolygon(p, {{5, 5}, {55, 5}, {5, 45}}, kWhite); }), 1000, 10);
}

TEST(Shapes, OutsideThePictureNothingIsTouched) {
  PixelArray pixels(4, 4);
  const MutablePixelView view = pixels.mutable_view();
  FillCircle(view, {-50, 2}, 10, kWhite);
  FillRound(view, {100, 100, 20, 20}, 4, kWhite);
  StrokeCircle(view, {2, 90}, 10, 2, kWhite);
  FillPolygon(view, {}, kWhite);
  StrokeLines(view, {}, 2, kWhite);
  EXPECT_EQ(Covered(pixels), 0);
  FillBox({}, {0, 0, 5, 5}, kWhite);
}

// A slip in a path would leave an icon empty or outside its field.
TEST(Icons, EveryIconFillsItsField) {
  for (int glyph = 0; glyph <= static_cast<int>(Glyph::kPhoto); ++glyph) {
    const std::vector<Line> lines = ParsePath(GlyphPath(static_cast<Glyph>(glyph)));
    EXPECT_FALSE(lines.empty()) << glyph;
    double left = 24, right = 0;
    for (const Line& line : lines) {
      EXPECT_GE(line.size(), 2u) << glyph;
      for (const Point& p : line) {
        EXPECT_TRUE(p.x >= 1.5 && p.x <= 22.5 && p.y >= 1.5 && p.y <= 22.5) << glyph;
        left = std::min(left, p.x);
        right = std::max(right, p.x);
      }
    }
    EXPECT_GE(right - left, 6) << glyph;
  }
}

// Whoever reads with tired eyes reads everything: 4.5 to 1 for texts, 3 to 1 for outlines that
// carry meaning.
TEST(Theme, TextsAndOutlinesStandOut) {
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    SCOPED_TRACE(theme->dark ? "dark" : "light");
    for (const Colour ground : {theme->page, theme->card, theme->hover, theme->pressed}) {
      EXPECT_GE(Contrast(theme->text, ground), 7);
    }
    for (const Colour ground : {theme->page, theme->card}) {
      EXPECT_GE(Contrast(theme->quiet, ground), 4.5);
      EXPECT_GE(Contrast(theme->accent, ground), 3);
      EXPECT_GE(Contrast(theme->control_border, ground), 3);
    }
    EXPECT_GE(Contrast(theme->on_accent, theme->accent), 4.5);
  }
}

}  // namespace
}  // namespace tarnwell
