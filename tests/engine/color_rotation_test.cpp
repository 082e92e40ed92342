#include "engine/color_rotation.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

TestPixel Turned(const TestPixel& pixel, int degrees) {
  const auto picture = PictureOf(1, {pixel});
  RotateHueOfRow(picture->mutable_view(), 0, degrees);
  return PixelAt(picture->view(), 0, 0);
}

TEST(ColorRotationTest, ByHand) {
  struct Case {
    TestPixel before;
    int degrees;
    TestPixel after;
  };
  const Case cases[] = {
      {{255, 0, 0}, 120, {0, 255, 0}},
      {{255, 0, 0}, -120, {0, 0, 255}},
      {{255, 0, 0}, 60, {255, 255, 0}},
      {{255, 0, 0}, 180, {0, 255, 255}},
      {{255, 0, 0}, -180, {0, 255, 255}},
      {{40, 40, 40}, 77, {40, 40, 40}},
      // A preset's text is taken as it is: whole turns on top change nothing.
      {{255, 0, 0}, -480, {0, 0, 255}},
      {{255, 0, 0}, 32760 + 120, {0, 255, 0}},
      {{255, 0, 0}, -32760 - 120, {0, 0, 255}},
      // A spread of 30: one degree is half a level. 10 + 0.5 and 11 + 0.5 go to the even side.
      {{40, 10, 10}, 1, {40, 10, 10}},
      {{41, 11, 11}, 1, {41, 12, 11}},
      // Falling: 40 - 0.5 and 41 - 0.5.
      {{40, 40, 10}, 1, {40, 40, 10}},
      {{41, 41, 11}, 1, {40, 41, 11}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Turned(c.before, c.degrees), c.after) << c.before << " by " << c.degrees;
  }
}

// One pixel as the rule is told: hue in degrees times the spread, then the middle channel.
TestPixel NaivelyTurned(const TestPixel& pixel, int degrees) {
  const auto [red, green, blue] = pixel;
  const int max = std::max({red, green, blue}), min = std::min({red, green, blue});
  const int spread = max - min;
  if (spread == 0) return pixel;
  const int hue = max == red     ? 60 * (green - blue)
                  : max == green ? 60 * (blue - red) + 120 * spread
                                 : 60 * (red - green) + 240 * spread;
  const int circle = 360 * spread;
  const int turned = (hue + degrees % 360 * spread + 2 * circle) % circle;
  const int sixth = turned / (60 * spread), into = turned % (60 * spread);
  // In sixtieths, which are exact in double: no quotient but a true half looks like one.
  const int sixtieths = sixth % 2 == 0 ? 60 * min + into : 60 * max - into;
  const int middle = static_cast<int>(std::nearbyint(sixtieths / 60.0));
  const TestPixel results[] = {{max, middle, min}, {middle, max, min}, {min, max, middle},
                               {min, middle, max}, {middle, min, max}, {max, min, middle}};
  return results[sixth];
}

// Rows of all colours of one red level; the last row ends inside a block.
void ExpectNaive(int red, int degrees) {
  PixelArray pixels(65535, 1);
  const auto colour = [&](int i) { return TestPixel{red, i / 256, i % 256}; };
  for (int i = 0; i < pixels.width(); ++i) SetPixel(pixels.mutable_view(), i, 0, colour(i));
  pixels.mutable_view().data[kUnused] = 77;
  RotateHueOfRow(pixels.mutable_view(), 0, degrees);
  for (int i = 0; i < pixels.width(); ++i) {
    ASSERT_EQ(PixelAt(pixels.view(), i, 0), NaivelyTurned(colour(i), degrees))
        << colour(i) << " by " << degrees;
  }
  ASSERT_EQ(pixels.view().data[kUnused], 77);
}

TEST(ColorRotationTest, EveryColourGivesTheSameAsTheNaiveForm) {
  for (int red = 0; red < 256; red += 3) ExpectNaive(red, 47 * red % 361 - 180);
  for (const int degrees : {-120, -61, -59, -1, 1, 30, 60, 179}) ExpectNaive(151, degrees);
}

}  // namespace
}  // namespace tarnwell
