#include "imaging/upright.h"

#include <gtest/gtest.h>

#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

// What the letters F (stored) look like, drawn as the standard defines each orientation.
TEST(TurnUpright, ShowsTheSameSceneForAllEight) {
  const TestPixel o = {0, 0, 0}, a = {1, 1, 1}, b = {2, 2, 2};
  const Picture upright = PictureOf(2, {a, b,  //
                                        a, o,  //
                                        o, o});
  const Picture stored[] = {
      upright,
      PictureOf(2, {b, a, o, a, o, o}),  // 2 left and right exchanged
      PictureOf(2, {o, o, o, a, b, a}),  // 3 upside down
      PictureOf(2, {o, o, a, o, a, b}),  // 4 top and bottom exchanged
      PictureOf(3, {a, a, o, b, o, o}),  // 5 first row is the left side
      PictureOf(3, {b, o, o, a, a, o}),  // 6 first row is the right side
      PictureOf(3, {o, o, b, o, a, a}),  // 7
      PictureOf(3, {o, a, a, o, o, b}),  // 8
  };
  for (int orientation = 1; orientation <= 8; ++orientation) {
    EXPECT_EQ(*TurnUpright(stored[orientation - 1], orientation), *upright) << orientation;
  }
}

// Larger than the squares that are turned at once, and no multiple of them.
TEST(TurnUpright, TurnsEveryPixelOfALargePicture) {
  const Picture stored = RandomPixels(37, 50);
  for (const int orientation : {5, 6, 7, 8}) {
    const Picture turned = TurnUpright(stored, orientation);
    ASSERT_EQ(turned->width(), 50);
    for (int y = 0; y < 37; ++y) {
      for (int x = 0; x < 50; ++x) {
        const int column = orientation >= 7 ? 36 - y : y;
        const int row = orientation == 6 || orientation == 7 ? 49 - x : x;
        ASSERT_EQ(PixelAt(turned->view(), x, y), PixelAt(stored->view(), column, row));
      }
    }
  }
}

}  // namespace
}  // namespace tarnwell
