#include "engine/color_rotation.h"

#include <gtest/gtest.h>

#include "tests/reference/naive_correction.h"

namespace tarnwell {
namespace {

// Rows of all colours of one red level; the last pixels do not fill a vector.
void ExpectNaive(int red, int degrees) {
  PixelArray photo(65535, 1);
  const auto colour = [&](int i) { return TestPixel{red, i / 256, i % 256}; };
  for (int i = 0; i < photo.width(); ++i) SetPixel(photo.mutable_view(), i, 0, colour(i));
  photo.mutable_view().data[kUnused] = 77;
  for (const Instructions instructions : {BestInstructions(), Instructions::kPlain}) {
    PixelArray pixels = photo;
    RotateHueOfRow(pixels.mutable_view(), 0, degrees, instructions);
    for (int i = 0; i < pixels.width(); ++i) {
      ASSERT_EQ(PixelAt(pixels.view(), i, 0), naive::TurnHue(colour(i), degrees))
          << colour(i) << " by " << degrees;
    }
    ASSERT_EQ(pixels.view().data[kUnused], 77);
  }
}

TEST(ColorRotationTest, EveryColourGivesTheSameAsTheNaiveForm) {
  for (int red = 0; red < 256; red += 7) ExpectNaive(red, 47 * red % 361 - 180);
  for (const int degrees : {-120, -61, -59, -1, 1, 30, 60, 179}) ExpectNaive(151, degrees);
}

}  // namespace
}  // namespace tarnwell
