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

TEST(ColorRotationTest, KeepsLightAndSpreadAndTurnsBackWithinALevel) {
  for (int degrees = -180; degrees <= 180; degrees += 7) {
    for (const TestPixel& pixel :
         {TestPixel{200, 30, 90}, {12, 250, 251}, {1, 0, 0}, {90, 180, 20}, {60, 10, 240}}) {
      const TestPixel turned = Turned(pixel, degrees);
      EXPECT_EQ(std::max({turned.red, turned.green, turned.blue}),
                std::max({pixel.red, pixel.green, pixel.blue}));
      EXPECT_EQ(std::min({turned.red, turned.green, turned.blue}),
                std::min({pixel.red, pixel.green, pixel.blue}));
      const TestPixel back = Turned(turned, -degrees);
      EXPECT_LE(std::abs(back.red - pixel.red) + std::abs(back.green - pixel.green) +
                    std::abs(back.blue - pixel.blue),
                1)
          << pixel << " by " << degrees;
    }
  }
}

}  // namespace
}  // namespace tarnwell
