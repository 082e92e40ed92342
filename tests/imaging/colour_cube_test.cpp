#include "imaging/colour_cube.h"

#include <gtest/gtest.h>

#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

TEST(ColourCube, UnchangedSamplesKeepEveryPixel) {
  const auto picture = RandomPixels(64, 64);
  auto converted = std::make_shared<PixelArray>(*picture);
  ColourCube().Convert(converted->mutable_view().data, 64 * 64);
  EXPECT_EQ(*converted, *picture);
}

TEST(ColourCube, ColoursBetweenSamplesFollowThem) {
  ColourCube cube;
  // Exchanges red and blue, and halves green: both are straight lines between samples.
  for (ColourCube::Colour& colour : cube.samples()) {
    std::swap(colour[0], colour[2]);
    colour[1] /= 2;
  }
  const Picture picture = RandomPixels(40, 40, 5);
  auto converted = std::make_shared<PixelArray>(*picture);
  cube.Convert(converted->mutable_view().data, 40 * 40);
  for (int i = 0; i < 40 * 40; ++i) {
    const TestPixel before = PixelAt(picture->view(), i % 40, i / 40);
    const TestPixel after = PixelAt(converted->view(), i % 40, i / 40);
    ASSERT_EQ(after.red, before.blue);
    ASSERT_EQ(after.blue, before.red);
    ASSERT_NEAR(after.green, before.green / 2.0, 0.51);
  }
}

}  // namespace
}  // namespace tarnwell
