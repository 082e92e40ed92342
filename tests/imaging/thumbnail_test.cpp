#include "imaging/thumbnail.h"

#include <cstring>
#include <gtest/gtest.h>

#include "imaging/pixel_buffer.h"
#include "tests/support/fakes.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

struct SizeCase {
  int width, height;
  int thumb_width, thumb_height;
  double left, top;
};

TEST(ThumbnailTest, SizeAndPlaceFollowTheLongerSide) {
  const SizeCase cases[] = {
      {1000, 500, 320, 160, 0, 80},
      {500, 1000, 160, 320, 80, 0},
      {4000, 3000, 320, 240, 0, 40},
      // Both sides below 320: as it is, centred on half a pixel where need be.
      {319, 200, 319, 200, 0.5, 60},
      // One side at the limit is no longer below it.
      {320, 100, 320, 100, 0, 110},
      {320, 320, 320, 320, 0, 0},
      // 1.5, 2.5 and 3.5 go to the even neighbour.
      {640, 3, 320, 2, 0, 159},
      // A quotient just above a tie: the division comes first.
      {725, 3712, 63, 320, 128.5, 0},
      // Strips keep at least one pixel.
      {kMaxSide, 1, 320, 1, 0, 159.5},
      {1, kMaxSide, 1, 320, 159.5, 0},
  };
  for (const SizeCase& c : cases) {
    SCOPED_TRACE(testing::Message() << c.width << " x " << c.height);
    PixelBuffer buffer;
    RecordingEvents events;
    Display(buffer.surfaces.picSource, TryMakePixels(c.width, c.height));
    MakeThumbnail(buffer, events);
    const PictureSurface& thumb = buffer.surfaces.picThumb;
    EXPECT_EQ(thumb.width, c.thumb_width);
    EXPECT_EQ(thumb.height, c.thumb_height);
    EXPECT_EQ(thumb.left, c.left);
    EXPECT_EQ(thumb.top, c.top);
    EXPECT_TRUE(thumb.visible);
  }
}

// A container after the shadow of a thumbnail, on a background of 200, 100 and 50.
PixelArray Shadowed(PictureSize size) {
  PixelArray container(kThumbnailSide, kThumbnailSide);
  const MutablePixelView view = container.mutable_view();
  for (std::size_t i = 0; i < view.pixel_count(); ++i) {
    const std::uint8_t background[] = {200, 100, 50, 7};
    std::memcpy(view.data + i * 4, background, 4);
  }
  DarkenShadow(view, size);
  return container;
}

TEST(ThumbnailShadowTest, DarkensByTheBandsFactorsRoundedToEven) {
  // Thumbnail at 0, 80 to 320, 240: the deep band is below, the shallow one above.
  const PixelArray wide = Shadowed({320, 160});
  const auto blue = [&](int x, int y) { return int{wide.view().at(x, y)[kBlue]}; };
  // Full strength in the middle: 0.66, then 0.34 / 9 lighter from row to row.
  EXPECT_EQ(blue(160, 240), 132);
  EXPECT_EQ(blue(160, 241), 140);  // 0.69778 x 200 = 139.56
  EXPECT_EQ(blue(160, 248), 192);  // 0.96222 x 200 = 192.44
  EXPECT_EQ(blue(160, 249), 200);
  EXPECT_EQ(blue(160, 79), 180);
  EXPECT_EQ(blue(160, 78), 190);
  EXPECT_EQ(blue(160, 77), 200);
  EXPECT_EQ(int{wide.view().at(160, 240)[kRed]}, 33);
  EXPECT_EQ(int{wide.view().at(160, 79)[kGreen]}, 90);
  EXPECT_EQ(int{wide.view().at(160, 78)[kRed]}, 48);  // 47.5
  // The first pixel of a row has a quarter of the strength: 1 - 0.25 x 0.34 = 0.915.
  EXPECT_EQ(blue(1, 240), 183);
  EXPECT_EQ(blue(0, 240), 200);
  EXPECT_EQ(blue(0, 79), 195);
  // Each row of the deep band starts one pixel further on.
  EXPECT_EQ(blue(4, 244), 200);
  EXPECT_LT(blue(5, 244), 200);
  // The last pixel of a row has a ninth: 1 - 0.34 / 9.
  EXPECT_EQ(blue(319, 240), 192);
}

}  // namespace
}  // namespace tarnwell
