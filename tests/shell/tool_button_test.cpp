#include "shell/tool_button.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "shell/menus.h"
#include "tests/support/main_desk.h"

namespace tarnwell {
namespace {

using Log = std::vector<std::string>;
using Kind = ScriptedDialogs::Kind;

TEST(ToolButton, WindowsComeUp) {
  struct Case {
    int index;
    Log expected;
  };
  const Case cases[] = {
      {kTipsButton, {"tip 1"}},
      {kModulesButton, {"modules", "tip 5"}},
      {kAboutButton, {"about"}},
      {kWebPageButton, {"web https://tarnwell-pocket.example/"}},
      {kAutomatedModeButton, {"automated mode"}},
      {kAutomatedSetupButton, {"automated setup"}},
      {kSaveButton, {}},
      {kAdjustButton, {}},
      {-1, {}},
      {kToolButtonCount, {}},
  };
  MainDesk desk;
  for (const Case& c : cases) {
    desk.view.log.clear();
    picToolBtn_Click(desk.window, c.index);
    EXPECT_EQ(desk.view.log, c.expected) << c.index;
  }
}

TEST(ToolButton, AnUnreadablePhotoIsToldAndABackedOutDialogIsNot) {
  MainDesk desk;
  const std::string path = desk.folder.Write("broken.jpg", "no photo at all");
  desk.dialogs.open_files = {path, std::nullopt};
  picToolBtn_Click(desk.window, kOpenButton);
  ASSERT_EQ(desk.dialogs.Told().size(), 1u);
  EXPECT_TRUE(desk.dialogs.Told()[0].find("broken.jpg") != std::string::npos);
  picToolBtn_Click(desk.window, kOpenButton);
  EXPECT_EQ(desk.dialogs.Told().size(), 1u);
}

TEST(ToolButton, PreviewAndFullCorrectionDifferInSize) {
  MainDesk desk;
  desk.ShowLargePhoto();
  picToolBtn_Click(desk.window, kPreviewButton);
  EXPECT_EQ(desk.surfaces().picSource.picture->width(), 320);
  picToolBtn_Click(desk.window, kAdjustButton);
  EXPECT_EQ(desk.surfaces().picSource.picture->width(), 400);
  EXPECT_TRUE(desk.app.photo_changed);
}

TEST(ToolButton, DefaultsFollowThePhotoOpenMode) {
  MainDesk desk;
  SetSliderValue(desk.modules, 3, 40);
  desk.app.open_mode = 2;
  picToolBtn_Click(desk.window, kDefaultsButton);
  EXPECT_EQ(desk.modules.Value(3), 40);
  desk.app.open_mode = 1;
  picToolBtn_Click(desk.window, kDefaultsButton);
  EXPECT_EQ(desk.modules.Value(3), 0);
}

TEST(ToolButton, WhatIsMissingSaysSo) {
  MainDesk desk;
  picToolBtn_Click(desk.window, kNotImplementedButton);
  desk.view.outcome = Status::Error(Failure::kNotFound, "TarnwellPocket.hlp: does not exist");
  picToolBtn_Click(desk.window, kHelpButton);
  EXPECT_EQ(desk.dialogs.Told(),
            (Log{"Feature not implemented", "TarnwellPocket.hlp: does not exist"}));
}

TEST(ToolButton, TheQuickLaunchShortcutIsMadeOnYesOnly) {
  for (const Answer answer : {Answer::kYes, Answer::kNo, Answer::kCancel}) {
    MainDesk desk;
    desk.dialogs.answers = {answer};
    picToolBtn_Click(desk.window, kQuickLaunchButton);
    const bool made = answer == Answer::kYes;
    EXPECT_EQ(desk.view.log, made ? Log{"shortcut"} : Log{});
    EXPECT_EQ(desk.dialogs.Told().size(), made ? 1u : 0u);
  }
}

TEST(ToolButton, TheOptionsButtonClicksTheChosenRow) {
  MainDesk desk;
  picToolBtn_Click(desk.window, kOptionsButton);
  EXPECT_FALSE(desk.app.auto_preview);
  desk.view.menu_choice = 1;
  picToolBtn_Click(desk.window, kOptionsButton);
  EXPECT_TRUE(desk.app.auto_preview);
  EXPECT_EQ(desk.view.log, (Log{"menu 2", "menu 2"}));
}

TEST(ToolButton, PresetsComeFromAndGoToTheFileThatIsChosen) {
  MainDesk desk;
  const std::string path = desk.folder.File("look.twp");
  SetSliderValue(desk.modules, 3, 25);
  desk.dialogs.save_files = {path};
  picToolBtn_Click(desk.window, kSavePresetButton);
  SetSliderValue(desk.modules, 3, -10);
  desk.dialogs.open_files = {path};
  picToolBtn_Click(desk.window, kOpenPresetButton);
  EXPECT_EQ(desk.modules.Value(3), 25);
  EXPECT_EQ(desk.dialogs.Told(), Log{});
}

}  // namespace
}  // namespace tarnwell
