#include "imaging/thumbnail.h"

#include <cstring>
#include <gtest/gtest.h>

#include "imaging/pixel_buffer.h"
#include "tests/support/pictures.h"
#include "tests/support/recording_events.h"

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
      {319, 319, 319, 319, 0.5, 0.5},
      {1, 1, 1, 1, 159.5, 159.5},
      // One side at the limit is no longer below it.
      {320, 100, 320, 100, 0, 110},
      {100, 320, 100, 320, 110, 0},
      {320, 320, 320, 320, 0, 0},
      {321, 321, 320, 320, 0, 0},
      {3000, 3000, 320, 320, 0, 0},
      // 1.5, 2.5 and 3.5 go to the even neighbour.
      {640, 3, 320, 2, 0, 159},
      {5, 640, 2, 320, 159, 0},
      {640, 7, 320, 4, 0, 158},
      // A quotient just above a tie: the division comes first.
      {725, 3712, 63, 320, 128.5, 0},
      // Strips keep at least one pixel.
      {640, 1, 320, 1, 0, 159.5},
      {kMaxSide, 1, 320, 1, 0, 159.5},
      {1, kMaxSide, 1, 320, 159.5, 0},
  };
  for (const SizeCase& c : cases) {
    SCOPED_TRACE(testing::Message() << c.width << " x " << c.height);
    PixelBuffer buffer;
    RecordingEvents events;
    int tips = 0;
    buffer.OfferPreviewTip = [&] { ++tips; };
    Display(buffer.surfaces.picSource, TryMakePixels(c.width, c.height));
    MakeThumbnail(buffer, events);
    const PictureSurface& thumb = buffer.surfaces.picThumb;
    EXPECT_EQ(thumb.width, c.thumb_width);
    EXPECT_EQ(thumb.height, c.thumb_height);
    EXPECT_EQ(thumb.left, c.left);
    EXPECT_EQ(thumb.top, c.top);
    EXPECT_TRUE(thumb.visible);
    EXPECT_EQ(events.runs, 1);
    EXPECT_EQ(tips, 1);
  }
}

TEST(ThumbnailTest, AnEmptySourceLeavesThePreviewAlone) {
  PixelBuffer buffer;
  RecordingEvents events;
  MakeThumbnail(buffer, events);
  EXPECT_FALSE(buffer.surfaces.picThumb.visible);
  EXPECT_EQ(buffer.surfaces.picThumb.picture, nullptr);
  EXPECT_EQ(events.runs, 0);
}

// The source position under the middle of target position `i`, by walking: a source position covers
// the stretch from s / from to (s + 1) / from of the side, the middle lies at (2i + 1) / (2 to).
int PositionByWalking(int i, int from, int to) {
  int s = 0;
  while ((s + 1) * 2 * to <= (2 * i + 1) * from) ++s;
  return s;
}

TEST(ThumbnailTest, StretchTakesTheNearestPixelWithAllFourBytes) {
  const int sizes[][4] = {{7, 5, 3, 2}, {3, 2, 7, 5}, {640, 3, 320, 2}, {5, 5, 5, 5}, {9, 1, 1, 4}};
  for (const auto& [width, height, to_width, to_height] : sizes) {
    SCOPED_TRACE(testing::Message() << width << " x " << height << " to " << to_width);
    const auto source = RandomPixels(width, height);
    const Picture stretched = StretchPicture(source->view(), {to_width, to_height});
    ASSERT_NE(stretched, nullptr);
    for (int y = 0; y < to_height; ++y) {
      for (int x = 0; x < to_width; ++x) {
        const std::uint8_t* expected = source->view().at(PositionByWalking(x, width, to_width),
                                                         PositionByWalking(y, height, to_height));
        ASSERT_EQ(std::memcmp(stretched->view().at(x, y), expected, 4), 0) << x << ", " << y;
      }
    }
  }
}

// A container after the shadow of a thumbnail, on a background of 200, 100 and 50.
PixelArray Shadowed(ThumbnailSize size) {
  PixelArray container(kThumbnailSide, kThumbnailSide);
  const MutablePixelView view = container.mutable_view();
  for (std::size_t i = 0; i < view.pixel_count(); ++i) {
    const std::uint8_t background[] = {200, 100, 50, 7};
    std::memcpy(view.data + i * 4, background, 4);
  }
  DarkenShadow(view, size);
  return container;
}

TEST(ThumbnailShadowTest, FallsOnlyWhereTheThumbnailLeavesRoom) {
  struct {
    ThumbnailSize size;
    bool right, below;
  } const cases[] = {
      {{320, 160}, false, true},  {{160, 320}, true, false}, {{160, 160}, true, true},
      {{320, 320}, false, false}, {{319, 319}, true, true},  {{1, 320}, true, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.size.width << " x " << c.size.height);
    const PixelArray container = Shadowed(c.size);
    const int left = (320 - c.size.width) / 2, top = (320 - c.size.height) / 2;
    const int right = left + c.size.width, bottom = top + c.size.height;
    bool shadow_right = false, shadow_below = false;
    for (int y = 0; y < 320; ++y) {
      for (int x = 0; x < 320; ++x) {
        const std::uint8_t* pixel = container.view().at(x, y);
        ASSERT_EQ(pixel[kUnused], 7);
        const bool inside = x >= left && x < right && y >= top && y < bottom;
        const bool near_by = x >= left - 2 && x < right + 9 && y >= top - 2 && y < bottom + 9;
        if (inside || !near_by) {
          ASSERT_EQ(pixel[kBlue], 200) << x << ", " << y;
        }
        ASSERT_GE(pixel[kBlue], 132) << x << ", " << y;
        if (pixel[kBlue] < 200 && x >= right) shadow_right = true;
        if (pixel[kBlue] < 200 && y >= bottom) shadow_below = true;
      }
    }
    EXPECT_EQ(shadow_right, c.right);
    EXPECT_EQ(shadow_below, c.below);
  }
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

TEST(ThumbnailShadowTest, TheCornerIsRoundAndAlikeInBothDirections) {
  const PixelArray small = Shadowed({100, 100});  // 110 to 210
  for (int a = 0; a < 9; ++a) {
    for (int b = 0; b < 9; ++b) {
      const int here = small.view().at(210 + a, 210 + b)[kBlue];
      EXPECT_EQ(here, small.view().at(210 + b, 210 + a)[kBlue]);
      EXPECT_LE(here, small.view().at(211 + a, 210 + b)[kBlue]);
    }
  }
  EXPECT_EQ(int{small.view().at(210, 210)[kBlue]}, 132);
}

TEST(ThumbnailShadowTest, IsDrawnAnewOnlyForAnotherSize) {
  PixelBuffer buffer;
  RecordingEvents events;
  const auto show = [&](int width, int height) {
    Display(buffer.surfaces.picSource, TryMakePixels(width, height));
    MakeThumbnail(buffer, events);
    return buffer.surfaces.picTContainer.picture;
  };
  const Picture first = show(1000, 500);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->width(), 320);
  EXPECT_EQ(first->height(), 320);
  EXPECT_EQ(show(2000, 1000), first);
  EXPECT_NE(show(500, 1000), first);
}

}  // namespace
}  // namespace tarnwell
