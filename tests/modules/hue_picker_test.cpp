#include <cmath>
#include <gtest/gtest.h>

#include "modules/frm_modules.h"

namespace tarnwell {
namespace {

TEST(HuePickerTest, DirectionChoosesTheHueAndDistanceItsStrength) {
  const float h = static_cast<float>(std::sqrt(3.0) / 4);  // 0.5 x cos 30 degrees
  struct Row {
    const char* name;
    int x, y;
    float red, green, blue;
  };
  const Row rows[] = {
      {"left edge", 0, 53, -0.5f, 0.25f, 0.25f},
      {"top edge", 53, 0, 0, h, -h},
      {"almost the right edge", 105, 53, 26.0f / 53, -13.0f / 53, -13.0f / 53},
      {"half the way left", 27, 53, -13.0f / 53, 6.5f / 53, 6.5f / 53},
      {"corner, full strength", 0, 0, -0.35355339f, 0.48296291f, -0.12940952f},
      {"outside to the left", -900, 53, -0.5f, 0.25f, 0.25f},
      {"outside to the right", 900, 53, 26.0f / 53, -13.0f / 53, -13.0f / 53},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    HuePicker hue;
    MoveHueMarker(hue, row.x, row.y);
    EXPECT_NEAR(hue.factors[0], row.red, 1e-7);
    EXPECT_NEAR(hue.factors[1], row.green, 1e-7);
    EXPECT_NEAR(hue.factors[2], row.blue, 1e-7);
  }
}

TEST(HuePickerTest, TheCentreChangesNothing) {
  HuePicker hue;
  hue.lblHue[0] = {10, 20, 30};
  MoveHueMarker(hue, 0, 0);
  MoveHueMarker(hue, 53, 53);
  for (float factor : hue.factors) {
    EXPECT_EQ(factor, 0.0f);
    EXPECT_FALSE(std::signbit(factor));
  }
  EXPECT_EQ(hue.lblHue[1], hue.lblHue[0]);
}

TEST(HuePickerTest, TheMarkerStaysInTheField) {
  HuePicker hue;
  MoveHueMarker(hue, -1, 106);
  EXPECT_EQ(hue.marker_x, 0);
  EXPECT_EQ(hue.marker_y, 105);
}

TEST(HuePickerTest, TheSecondSwatchIsTheFirstAfterTheFactors) {
  HuePicker hue;
  hue.lblHue[0] = {101, 250, 2};
  MoveHueMarker(hue, 0, 53);
  // 101 - 50.5 = 50.5, the tie goes to the even 50; 250 + 62.5 is above 255; 2 + 0.5 = 2.5 to 2.
  EXPECT_EQ(hue.lblHue[1], (Rgb{50, 255, 2}));
  EXPECT_EQ(hue.lblHue[0], (Rgb{101, 250, 2}));
}

}  // namespace
}  // namespace tarnwell
