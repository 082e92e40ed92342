#include <gtest/gtest.h>

#include "modules/frm_modules.h"
#include "modules/open_mode.h"
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
  const Row rows[] = {{0, {}, {}},
                      {1, {{0, 0}, {1, 0}}, {{0, "0"}, {1, "0"}}},
                      {2, {{2, 50}}, {}},
                      {6, {}, {}},
                      {7, {{7, 40}, {8, 30}}, {{4, "1"}}},
                      {9, {}, {}},
                      {10, {{6, 80}}, {}},
                      {11, {}, {{2, "1"}}},
                      {12, {{10, 3}, {11, 19}}, {}},
                      {13, {}, {}}};
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
    EXPECT_EQ(window.modules.hue.lblHue[0], (Rgb{9, 9, 9})) << "the photo's own mean colour";
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

// Every module open, and every value away from its default.
void OpenAll(frmModules& panel) {
  panel.open.fill(1);
  for (int slider = 0; slider < kSliderCount; ++slider) SetSliderValue(panel, slider, 7);
  panel.checks = {"1", "1", "0", "0", "0"};
  panel.rotation = 2;
  panel.camera = "Second";
}

std::vector<int> Values(const frmModules& panel) {
  std::vector<int> values;
  for (int slider = 0; slider < kSliderCount; ++slider) {
    values.push_back(panel.Value(slider).value_or(-1));
  }
  return values;
}

std::vector<int> Closed(const frmModules& panel) {
  std::vector<int> closed;
  for (int module = 0; module < kModuleCount; ++module) {
    if (!panel.IsOpen(module)) closed.push_back(module);
  }
  return closed;
}

TEST(ResetAllTest, EveryModeResetsAndClosesItsOwn) {
  // Resetting spares sliders 6 (quality) and 12 (colour rotation).
  const std::vector<int> untouched(kSliderCount, 7);
  const std::vector<int> defaults = {0, 0, 50, 0, 0, 0, 7, 40, 30, 50, 3, 19, 7};
  using Checks = std::array<std::string, 5>;
  const struct {
    OpenMode mode;
    std::vector<int> values;
    Checks checks;
    std::vector<int> closed;
    int rotation;
  } rows[] = {
      {kLeaveAll, untouched, {"1", "1", "0", "0", "0"}, {}, 2},
      {kResetOnly, defaults, {"0", "0", "0", "0", "1"}, {}, 0},
      {kResetAndMinimize, defaults, {"0", "0", "0", "0", "1"}, {0, 2, 3, 4, 5, 6, 7, 8}, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.mode);
    TestWindow window;
    OpenAll(window.modules);
    window.app.open_mode = row.mode;
    ResetAll(window.app, window.platform, window.modules);
    EXPECT_EQ(Values(window.modules), row.values);
    EXPECT_EQ(window.modules.checks, row.checks);
    EXPECT_EQ(Closed(window.modules), row.closed);
    EXPECT_EQ(window.modules.rotation, row.rotation);
    EXPECT_EQ(window.modules.camera, "Second");
    EXPECT_TRUE(window.dialogs.shown.empty());
  }
}

}  // namespace
}  // namespace tarnwell
