#include "ui/look/theme.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

TEST(Theme, FollowsTheSystemUnlessForced) {
  EXPECT_FALSE(ChooseTheme("", false).dark);
  EXPECT_TRUE(ChooseTheme("", true).dark);
  EXPECT_TRUE(ChooseTheme("dark", false).dark);
  EXPECT_FALSE(ChooseTheme("light", true).dark);
  EXPECT_TRUE(ChooseTheme("sepia", true).dark);
}

TEST(Theme, ContrastOfKnownPairs) {
  EXPECT_NEAR(Contrast(Hex(0x000000), Hex(0xFFFFFF)), 21.0, 1e-9);
  EXPECT_NEAR(Contrast(Hex(0x808080), Hex(0x808080)), 1.0, 1e-9);
  // 118 of 255 is the grey with the same contrast to black and white, about 4.6.
  EXPECT_NEAR(Contrast(Hex(0x767676), Hex(0xFFFFFF)), 4.54, 0.01);
}

// Whoever reads with tired eyes reads everything: 4.5 to 1 for texts, 3 to 1 for outlines that
// carry meaning.
TEST(Theme, TextsAndOutlinesStandOut) {
  for (const Theme* theme : {&kLightTheme, &kDarkTheme}) {
    SCOPED_TRACE(theme->dark ? "dark" : "light");
    for (const Colour ground : {theme->page, theme->card, theme->hover, theme->pressed}) {
      EXPECT_GE(Contrast(theme->text, ground), 7);
    }
    for (const Colour ground : {theme->page, theme->card}) {
      EXPECT_GE(Contrast(theme->quiet, ground), 4.5);
      EXPECT_GE(Contrast(theme->accent, ground), 3);
      EXPECT_GE(Contrast(theme->control_border, ground), 3);
    }
    EXPECT_GE(Contrast(theme->on_accent, theme->accent), 4.5);
  }
}

TEST(Theme, MixesFromUnderToOver) {
  EXPECT_EQ(Mix(Hex(0x000000), Hex(0xFF8000), 0), Hex(0x000000));
  EXPECT_EQ(Mix(Hex(0x000000), Hex(0xFF8000), 1), Hex(0xFF8000));
  EXPECT_EQ(Mix(Hex(0x000000), Hex(0xC86400), 0.5), Hex(0x643200));
}

}  // namespace
}  // namespace tarnwell
