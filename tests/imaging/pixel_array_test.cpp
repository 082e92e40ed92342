#include "imaging/pixel_array.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

TEST(PixelArrayTest, HoldsFourBytesAPixelRowsTopDown) {
  PixelArray pixels(3, 2);
  EXPECT_EQ(pixels.view().byte_count(), 24u);
  EXPECT_EQ(pixels.view().at(0, 1) - pixels.view().at(0, 0), 12);
}

TEST(PixelArrayTest, SidesOutsideTheRangeAreRefused) {
  EXPECT_EQ(TryMakePixels(0, 5), nullptr);
  EXPECT_EQ(TryMakePixels(5, -1), nullptr);
  EXPECT_EQ(TryMakePixels(kMaxSide + 1, 1), nullptr);
  EXPECT_NE(TryMakePixels(kMaxSide, 1), nullptr);
}

}  // namespace
}  // namespace tarnwell
