#include "console/panel_settings.h"

#include <gtest/gtest.h>

#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

constexpr char kHalfStrengthFile[] = "Red: 250\r\nGrn: 240\r\nBlu: 200\r\nSld: 36\r\n";

TEST(PanelSettingsTest, SingleSettingsComeLast) {
  TestWindow window;
  Settings settings;
  settings.white_file = window.folder.Write("w.wbs", kHalfStrengthFile);
  ASSERT_TRUE(ApplySettings(settings, window.platform, window.app, window.modules).ok());
  EXPECT_EQ(window.modules.white_balance_mode, WhiteBalanceMode::kCustomFile);
  EXPECT_EQ(window.modules.custom_white_file, settings.white_file);
  EXPECT_EQ(window.modules.sliders[2].text, "19") << "floor(36 / 1.81)";

  settings.sliders = {{2, 80}, {3, 5}, {3, -7}};
  settings.modules = {{2, true}, {10, false}};
  settings.checks = {{kLearnFromSavedPhotos, false}};
  ASSERT_TRUE(ApplySettings(settings, window.platform, window.app, window.modules).ok());
  EXPECT_EQ(window.modules.sliders[2].text, "80");
  EXPECT_EQ(window.modules.sliders[3].text, "-7") << "the last word counts";
  EXPECT_TRUE(window.modules.IsOpen(2));
  EXPECT_FALSE(window.modules.IsOpen(10));
  EXPECT_FALSE(window.modules.IsChecked(kLearnFromSavedPhotos));
}

TEST(PanelSettingsTest, TheModesWhiteBalanceComesBeforeTheChosenOne) {
  TestWindow window;
  window.folder.Write("program\\Cameras\\Phone\\Night\\White Balance.wbs", kHalfStrengthFile);
  Settings settings;
  settings.camera = "Phone";
  settings.mode = "Night";
  ASSERT_TRUE(ApplySettings(settings, window.platform, window.app, window.modules).ok());
  EXPECT_EQ(window.modules.white_balance_mode, WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(window.modules.sliders[2].text, "19");

  settings.white = Rgb{1, 2, 3};
  ASSERT_TRUE(ApplySettings(settings, window.platform, window.app, window.modules).ok());
  EXPECT_EQ(window.modules.white_balance_mode, WhiteBalanceMode::kPickedPixel);
  EXPECT_EQ(window.modules.picked_white, (Rgb{1, 2, 3}));
  EXPECT_EQ(window.modules.sliders[2].text, "19") << "a colour alone says nothing of the strength";
}

}  // namespace
}  // namespace tarnwell
