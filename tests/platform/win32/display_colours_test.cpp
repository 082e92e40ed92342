#include "platform/win32/display_colours.h"

#include <gtest/gtest.h>

#include "imaging/srgb_profile.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

TestPixel Shown(const ColourCube& cube, const TestPixel& pixel) {
  auto picture = std::const_pointer_cast<PixelArray>(PictureOf(1, {pixel}));
  cube.Convert(picture->mutable_view().data, 1);
  return PixelAt(picture->view(), 0, 0);
}

TEST(DisplayColours, ColoursOfAUsualPhotoStayOnAUsualDisplay) {
  const auto cube = CubeForDisplay(SrgbProfile(), L"");
  ASSERT_TRUE(cube);
  for (const TestPixel& pixel :
       {TestPixel{200, 100, 50}, TestPixel{0, 0, 0}, TestPixel{255, 255, 255}}) {
    const TestPixel shown = Shown(*cube, pixel);
    EXPECT_NEAR(shown.red, pixel.red, 1);
    EXPECT_NEAR(shown.green, pixel.green, 1);
    EXPECT_NEAR(shown.blue, pixel.blue, 1);
  }
}

// A profile whose red and green stand for green and red of a usual display.
TEST(DisplayColours, ThePhotosProfileDecides) {
  std::string profile = SrgbProfile();
  profile.replace(profile.find("rXYZ"), 4, "????");
  profile.replace(profile.find("gXYZ"), 4, "rXYZ");
  profile.replace(profile.find("????"), 4, "gXYZ");
  const auto cube = CubeForDisplay(profile, L"");
  ASSERT_TRUE(cube);
  const TestPixel shown = Shown(*cube, {200, 100, 50});
  EXPECT_NEAR(shown.red, 100, 1);
  EXPECT_NEAR(shown.green, 200, 1);
  EXPECT_NEAR(shown.blue, 50, 1);
}

TEST(DisplayColours, WithoutAUsableProfileColoursAreShownAsTheyAre) {
  EXPECT_EQ(CubeForDisplay("no profile", L""), nullptr);
  EXPECT_TRUE(CubeForDisplay(SrgbProfile(), L"C:\\no such profile.icm"));
}

}  // namespace
}  // namespace tarnwell
