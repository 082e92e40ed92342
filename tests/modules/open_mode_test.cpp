#include "modules/open_mode.h"

#include <gtest/gtest.h>

#include "modules/frm_modules.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

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

TEST(ResetAllTest, LeavingChangesNothing) {
  TestWindow window;
  OpenAll(window.modules);
  window.app.open_mode = kLeaveAll;
  ResetAll(window.app, window.platform, window.modules);
  EXPECT_EQ(Values(window.modules), std::vector<int>(kSliderCount, 7));
  EXPECT_EQ(window.modules.checks, (std::array<std::string, 5>{"1", "1", "0", "0", "0"}));
  EXPECT_EQ(window.modules.rotation, 2);
  for (int module = 0; module < kModuleCount; ++module) EXPECT_TRUE(window.modules.IsOpen(module));
  EXPECT_EQ(window.events.runs, 0);
}

TEST(ResetAllTest, ResettingSparesQualitySavingAndColourRotation) {
  for (int mode : {kResetAndMinimize, kResetOnly}) {
    TestWindow window;
    OpenAll(window.modules);
    window.app.open_mode = mode;
    ResetAll(window.app, window.platform, window.modules);
    // Sliders 6 (quality) and 12 (colour rotation) keep their 7.
    EXPECT_EQ(Values(window.modules),
              (std::vector<int>{0, 0, 50, 0, 0, 0, 7, 40, 30, 50, 3, 19, 7}));
    EXPECT_EQ(window.modules.checks, (std::array<std::string, 5>{"0", "0", "0", "0", "1"}));
    EXPECT_EQ(window.modules.rotation, 0);
    EXPECT_EQ(window.modules.camera, "Second");
    EXPECT_TRUE(window.dialogs.shown.empty());
  }
}

TEST(ResetAllTest, OnlyMinimizingClosesAndOnlyTheFirstNineButSmart) {
  struct Row {
    OpenMode mode;
    std::vector<int> closed;
  };
  const Row rows[] = {{kResetOnly, {}}, {kResetAndMinimize, {0, 2, 3, 4, 5, 6, 7, 8}}};
  for (const Row& row : rows) {
    TestWindow window;
    OpenAll(window.modules);
    window.app.open_mode = row.mode;
    ResetAll(window.app, window.platform, window.modules);
    std::vector<int> closed;
    for (int module = 0; module < kModuleCount; ++module) {
      if (!window.modules.IsOpen(module)) closed.push_back(module);
    }
    EXPECT_EQ(closed, row.closed);
  }
}

TEST(ResetAllTest, ClosedModulesStayClosed) {
  TestWindow window;
  window.modules.open.fill(0);
  ResetAll(window.app, window.platform, window.modules);
  for (int module = 0; module < kModuleCount; ++module) EXPECT_FALSE(window.modules.IsOpen(module));
}

TEST(ResetAllTest, TheQuestionComesBackAsItWas) {
  for (bool confirm : {true, false}) {
    TestWindow window;
    window.app.confirm_reset = confirm;
    bool asked_meanwhile = false;
    window.events.on_run = [&](int run) {
      if (run <= 11) asked_meanwhile = asked_meanwhile || window.app.confirm_reset;
    };
    ResetAll(window.app, window.platform, window.modules);
    EXPECT_FALSE(asked_meanwhile);
    EXPECT_EQ(window.app.confirm_reset, confirm);
  }
}

TEST(OpenModeDialogTest, OnlyOkStoresTheChoice) {
  Module1 app;
  app.open_mode = kResetOnly;
  frmOpenMode dialog(app);
  EXPECT_EQ(dialog.selected, kResetOnly);
  dialog.selected = kLeaveAll;
  EXPECT_EQ(app.open_mode, kResetOnly);
  dialog.OkClicked(app);
  EXPECT_EQ(app.open_mode, kLeaveAll);
}

}  // namespace
}  // namespace tarnwell
