#include <gtest/gtest.h>

#include "modules/frm_modules.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

// Leaves nothing at its default.
void Disarrange(TestWindow& window) {
  frmModules& panel = window.modules;
  for (int slider = 0; slider < kSliderCount; ++slider) SetSliderValue(panel, slider, 7);
  panel.checks = {"1", "1", "0", "0", "0"};
  panel.rotation = 3;
  panel.hue.lblHue[0] = {9, 9, 9};
  MoveHueMarker(panel.hue, 3, 4);
  panel.white_balance_mode = WhiteBalanceMode::kPickedPixel;
  panel.lblWhiteClr = {1, 1, 1};
  panel.camera = "Second";
  panel.mode = "Night";
  SetProfile(window.app, "Second", "Night");
  window.folder.MakeFolder("program\\Cameras\\Second\\Night");
}

TEST(ModuleDefaultsTest, EachModuleResetsItsOwnSlidersAndChecksOnly) {
  struct Row {
    int module;
    std::vector<std::pair<int, int>> values;  // slider, value
    std::vector<std::pair<int, std::string>> checks;
  };
  const Row rows[] = {
      {0, {}, {}},
      {1, {{0, 0}, {1, 0}}, {{0, "0"}, {1, "0"}}},
      {2, {{2, 50}}, {}},
      {3, {{3, 0}}, {}},
      {4, {{4, 0}}, {}},
      {5, {{5, 0}}, {}},
      {6, {}, {}},
      {7, {{7, 40}, {8, 30}}, {{4, "1"}}},
      {8, {{9, 50}}, {}},
      {9, {}, {}},
      {10, {{6, 80}}, {}},
      {11, {}, {{2, "1"}}},
      {12, {{10, 3}, {11, 19}}, {}},
      {13, {}, {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(kModules[row.module].title);
    TestWindow window;
    Disarrange(window);
    std::array<int, kSliderCount> values;
    values.fill(7);
    for (auto [slider, value] : row.values) values[slider] = value;
    std::array<std::string, kCheckCount> checks = window.modules.checks;
    for (auto [check, state] : row.checks) checks[check] = state;

    window.dialogs.answers = {Answer::kYes};
    const bool reset = PicDefault_Click(window.app, window.platform, window.modules, row.module);
    EXPECT_EQ(reset, row.module != kColorRotation);
    for (int slider = 0; slider < kSliderCount; ++slider) {
      EXPECT_EQ(window.modules.Value(slider), values[slider]) << kSliders[slider].name;
    }
    EXPECT_EQ(window.modules.checks, checks);
    EXPECT_EQ(window.modules.rotation, row.module == kRotation ? 0 : 3);
    EXPECT_EQ(window.modules.hue.marker_x, row.module == kAdjustHue ? 53 : 3);
    EXPECT_EQ(window.modules.camera, row.module == kCameraAndMode ? "Default" : "Second");
  }
}

TEST(ModuleDefaultsTest, OnlyYesResets) {
  for (Answer answer : {Answer::kNo, Answer::kCancel}) {
    TestWindow window;
    SetSliderValue(window.modules, 3, 40);
    window.dialogs.answers = {answer};
    EXPECT_FALSE(PicDefault_Click(window.app, window.platform, window.modules, kAdjustBrightness));
    EXPECT_EQ(window.modules.Value(3), 40);
    EXPECT_EQ(window.dialogs.shown,
              (std::vector<ScriptedDialogs::Shown>{
                  {ScriptedDialogs::Kind::kAsk, "Tarnwell Pocket",
                   "Revert all settings in this module to defaults?", Icon::kQuestion}}));
  }
}

TEST(ModuleDefaultsTest, TheProfileGoesBackToDefault) {
  TestWindow window;
  Disarrange(window);
  window.app.confirm_reset = false;
  PicDefault_Click(window.app, window.platform, window.modules, kCameraAndMode);
  EXPECT_EQ(window.modules.mode, "Default");
  EXPECT_EQ(window.app.camera_folder, window.app.cameras_root + "Default\\");
  EXPECT_EQ(window.app.mode_folder, window.app.camera_folder + "Default\\");
}

TEST(ModuleDefaultsTest, TheHueGoesBackToGreyWithoutATint) {
  TestWindow window;
  Disarrange(window);
  window.app.confirm_reset = false;
  PicDefault_Click(window.app, window.platform, window.modules, kAdjustHue);
  EXPECT_EQ(window.modules.hue.marker_y, 53);
  EXPECT_EQ(window.modules.hue.factors, (std::array<float, 3>{0, 0, 0}));
  EXPECT_EQ(window.modules.hue.lblHue[0], (Rgb{192, 192, 192}));
  EXPECT_EQ(window.modules.hue.lblHue[1], (Rgb{192, 192, 192}));
}

// The mode's own strength is read first; the reset has the last word.
TEST(ModuleDefaultsTest, WhiteBalanceTakesTheModesColourAndTheDefaultStrength) {
  TestWindow window;
  Disarrange(window);
  window.folder.Write("program\\Cameras\\Second\\Night\\White Balance.wbs",
                      "Red: 200\r\nGrn: 210\r\nBlu: 220\r\nSld: 181\r\n");
  window.app.confirm_reset = false;
  PicDefault_Click(window.app, window.platform, window.modules, kSmartWhiteBalance);
  EXPECT_EQ(window.modules.white_balance_mode, WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(window.modules.lblWhiteClr, (Rgb{200, 210, 220}));
  EXPECT_EQ(window.modules.Value(2), 50);
}

}  // namespace
}  // namespace tarnwell
