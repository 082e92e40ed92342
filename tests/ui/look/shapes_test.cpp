#include "ui/look/shapes.h"

#include <gtest/gtest.h>
#include <numbers>

#include "ui/look/icons.h"

namespace tarnwell {
namespace {

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

int Level(const PixelArray& pixels, int x, int y) { return pixels.view().at(x, y)[kGreen]; }

TEST(Shapes, ABoxCoversExactlyItsPixelsAndIsCutAtTheEdges) {
  PixelArray pixels(10, 8);
  FillBox(pixels.mutable_view(), {7, -3, 20, 5}, kWhite);
  EXPECT_EQ(Covered(pixels), 3 * 2);
  EXPECT_EQ(Level(pixels, 7, 1), 255);
  EXPECT_EQ(Level(pixels, 6, 1), 0);
  EXPECT_EQ(Level(pixels, 7, 2), 0);
}

TEST(Shapes, CoverTheAreaThatGeometrySays) {
  const double pi = std::numbers::pi;
  struct Row {
    const char* name;
    void (*draw)(MutablePixelView);
    double area;
  };
  const Row rows[] = {
      {"disc",
       [](MutablePixelView p) {
         FillCircle(p, {30.3, 29.6}, 17.2, kWhite);
       },
       pi * 17.2 * 17.2},
      {"ring",
       [](MutablePixelView p) {
         StrokeCircle(p, {30, 30}, 15, 3, kWhite);
       },
       pi * (16.5 * 16.5 - 13.5 * 13.5)},
      {"round box",
       [](MutablePixelView p) {
         FillRound(p, {5, 8, 40, 30}, 6, kWhite);
       },
       40 * 30 - (4 - pi) * 36},
      {"round box of half opacity",
       [](MutablePixelView p) {
         FillRound(p, {5, 8, 40, 30}, 0, kWhite, 0.5);
       },
       600 + 1200 / 510.},
      {"outline",
       [](MutablePixelView p) {
         StrokeRound(p, {5, 5, 40, 30}, 0, 2, kWhite);
       },
       40 * 30 - 36 * 26},
      {"slanted line",
       [](MutablePixelView p) {
         const Line line = {{10, 10}, {40, 50}};
         StrokeLines(p, {&line, 1}, 4, kWhite);
       },
       50 * 4 + pi * 4},
      {"triangle",
       [](MutablePixelView p) {
         FillPolygon(p, {{5, 5}, {55, 5}, {5, 45}}, kWhite);
       },
       1000},
  };
  for (const Row& row : rows) {
    PixelArray pixels(60, 60);
    row.draw(pixels.mutable_view());
    EXPECT_NEAR(Covered(pixels), row.area, row.area * 0.01 + 0.5) << row.name;
  }
}

TEST(Shapes, LinesThatCrossAreOneFigure) {
  PixelArray once(40, 40), twice(40, 40);
  const Line line = {{4.3, 7.1}, {33.2, 30.9}};
  const std::vector<Line> doubled = {line, line};
  StrokeLines(once.mutable_view(), {&line, 1}, 3, kWhite);
  StrokeLines(twice.mutable_view(), doubled, 3, kWhite);
  EXPECT_EQ(once, twice);
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

TEST(Icons, PathNotation) {
  const std::vector<Line> lines = ParsePath("M1 2 L3 4 5 6 Z M 7 8 C 7 9 8 10 9 10");
  ASSERT_EQ(lines.size(), 2u);
  ASSERT_EQ(lines[0].size(), 4u);
  EXPECT_EQ(lines[0][2].y, 6);
  EXPECT_EQ(lines[0][3].x, 1);
  EXPECT_NEAR(lines[1].back().x, 9, 1e-9);
  EXPECT_NEAR(lines[1].back().y, 10, 1e-9);

  const std::vector<Line> circle = ParsePath("O 12 12 5");
  ASSERT_EQ(circle.size(), 1u);
  for (const Point& p : circle[0]) {
    EXPECT_NEAR((p.x - 12) * (p.x - 12) + (p.y - 12) * (p.y - 12), 25, 1e-9);
  }
}

TEST(Icons, ABrokenPathGivesWhatStandsBefore) {
  for (const char* path : {"", "L3 4", "M1", "Z", "O 1 2", "M1 2 Q", "M1 2 C 1 2 3", "M1 2 L"}) {
    EXPECT_LE(ParsePath(path).size(), 1u) << path;
  }
  EXPECT_EQ(ParsePath("M1 2 L3 4 X M5 6 L7 8").size(), 1u);
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

}  // namespace
}  // namespace tarnwell
