#include "shell/menu_click.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "shell/menus.h"
#include "shell/tool_button.h"
#include "tests/support/main_desk.h"

namespace tarnwell {
namespace {

using Log = std::vector<std::string>;

TEST(Menus, SeparatorsStandWhereTheRowNumbersLeaveGaps) {
  const std::vector<std::vector<int>> separators = {{3}, {2}, {}, {2, 4, 7}, {2}};
  const std::vector<int> rows = {5, 4, 5, 9, 4};
  for (int menu = 0; menu < kMenuCount; ++menu) {
    std::vector<int> found;
    for (int row = 0; FindRow(menu, row) != nullptr; ++row) {
      if (FindRow(menu, row)->IsSeparator()) found.push_back(row);
    }
    EXPECT_EQ(found, separators[menu]) << kMenus[menu].caption;
    EXPECT_EQ(static_cast<int>(kMenus[menu].rows.size()), rows[menu]) << kMenus[menu].caption;
  }
}

TEST(Menus, EveryShortcutStandsForOneRow) {
  std::set<std::string_view> seen;
  for (int menu = 0; menu < kMenuCount; ++menu) {
    for (int row = 0; const MenuRow* found = FindRow(menu, row); ++row) {
      if (found->shortcut.empty()) continue;
      EXPECT_TRUE(seen.insert(found->shortcut).second) << found->shortcut;
      EXPECT_EQ(RowOfShortcut(found->shortcut), (RowPosition{menu, row})) << found->shortcut;
    }
  }
  EXPECT_EQ(RowOfShortcut("ALT+M"), std::nullopt);
  EXPECT_EQ(RowOfShortcut(""), std::nullopt);
}

TEST(Menus, RowsWaitForThePhotoThatTheyWorkOn) {
  struct Case {
    int menu, row;
    bool without_photo, pasted, with_file;
  };
  const Case cases[] = {
      {kFileMenu, 0, true, true, true},    {kFileMenu, 1, false, true, true},
      {kFileMenu, 2, false, true, true},   {kFileMenu, 3, false, false, false},
      {kFileMenu, 4, false, true, true},   {kEditMenu, 0, false, true, true},
      {kEditMenu, 1, true, true, true},    {kEditMenu, 3, false, true, true},
      {kToolsMenu, 0, true, true, true},   {kToolsMenu, 5, true, true, true},
      {kToolsMenu, 8, false, false, true}, {kHelpMenu, 0, true, true, true},
      {kHelpMenu, 9, false, false, false}, {9, 0, false, false, false},
      {-1, 0, false, false, false},        {kFileMenu, -1, false, false, false},
  };
  MainDesk desk;
  for (const Case& c : cases) {
    EXPECT_EQ(IsRowEnabled(desk.form, c.menu, c.row), c.without_photo) << c.menu << ' ' << c.row;
  }
  desk.ShowLargePhoto();
  for (const Case& c : cases) {
    EXPECT_EQ(IsRowEnabled(desk.form, c.menu, c.row), c.pasted) << c.menu << ' ' << c.row;
  }
  desk.app.current_file = "C:\\P\\a.jpg";
  for (const Case& c : cases) {
    EXPECT_EQ(IsRowEnabled(desk.form, c.menu, c.row), c.with_file) << c.menu << ' ' << c.row;
  }
}

TEST(MenuClick, RowsThatShowSomethingAskTheView) {
  struct Case {
    int menu, row;
    Log expected;
  };
  MainDesk desk;
  const Case cases[] = {
      {kOptionsMenu, 0, {"modules", "tip 5"}},
      {kOptionsMenu, 3, {"open mode"}},
      {kHelpMenu, 0, {"help " + desk.app.help_file}},
      {kHelpMenu, 1, {"web https://tarnwell-pocket.example/"}},
      {kHelpMenu, 3, {"about"}},
      {kHelpMenu, 2, {}},
      {kFileMenu, 1, {}},  // no photo
  };
  for (const Case& c : cases) {
    desk.view.log.clear();
    MenuClick(desk.window, c.menu, c.row);
    EXPECT_EQ(desk.view.log, c.expected) << c.menu << ' ' << c.row;
  }
}

TEST(MenuClick, SwitchesMoveTheirCheckMarks) {
  struct Case {
    int menu, row;
    std::vector<RowPosition> checked;
  };
  const RowPosition kThumbnail{kToolsMenu, 0}, kFull{kToolsMenu, 1}, kBest{kToolsMenu, 3},
      kPreview{kOptionsMenu, 1};
  const Case clicks[] = {
      {kToolsMenu, 1, {kFull}},        {kToolsMenu, 1, {kFull}},
      {kToolsMenu, 3, {kFull, kBest}}, {kToolsMenu, 0, {kThumbnail, kBest}},
      {kToolsMenu, 3, {kThumbnail}},   {kOptionsMenu, 1, {kPreview, kThumbnail}},
      {kOptionsMenu, 1, {kThumbnail}},
  };
  MainDesk desk;
  for (const Case& c : clicks) {
    MenuClick(desk.window, c.menu, c.row);
    std::vector<RowPosition> checked;
    for (int menu = 0; menu < kMenuCount; ++menu) {
      for (int row = 0; FindRow(menu, row) != nullptr; ++row) {
        if (IsRowChecked(desk.form, menu, row)) checked.push_back({menu, row});
      }
    }
    EXPECT_EQ(checked, c.checked) << "after " << c.menu << ' ' << c.row;
  }
  EXPECT_EQ(desk.view.refreshes, 7);
}

TEST(Menus, PowerToysStandInTheMenuOnlyWhileTheyAreOn) {
  MainDesk desk;
  for (const bool on : {false, true}) {
    desk.app.power_toys = on;
    for (int row = 0; row < 9; ++row) {
      EXPECT_EQ(IsRowShown(desk.form, kToolsMenu, row), on || row >= 5) << row;
    }
    EXPECT_TRUE(IsRowShown(desk.form, kFileMenu, 0));
    EXPECT_FALSE(IsRowShown(desk.form, kFileMenu, 5));
  }
}

TEST(MenuClick, ShortcutsClickTheirRows) {
  MainDesk desk;
  desk.clipboard.content = NoisyPicture(30, 20, 5);
  EXPECT_TRUE(PressShortcut(desk.window, "ALT+V"));
  EXPECT_EQ(desk.surfaces().picOriginal.picture->width(), 30);
  EXPECT_TRUE(PressShortcut(desk.window, "ALT+M"));
  EXPECT_TRUE(desk.app.power_toys);
  EXPECT_TRUE(desk.folder.Holds("program\\powertoys.ini"));
  EXPECT_FALSE(PressShortcut(desk.window, "ALT+X"));
}

TEST(MenuClick, BothResetsAskUnderOneTitleAndActOnYesOnly) {
  struct Case {
    int row;
    const char* file;
    const char* question;
  };
  const Case cases[] = {
      {5, "program\\Cameras\\Default\\Default\\Smart Data.tsd",
       "This will permanently delete the learning system for the current camera and mode, "
       "continue?"},
      {6, "program\\Cameras\\Default\\~ Dead Pixels\\2x2\\map.bmp",
       "This will permanently delete the dead pixel maps and sample images for the current camera, "
       "continue?"},
  };
  for (const Case& c : cases) {
    MainDesk desk;
    desk.folder.Write(c.file, "");
    for (const Answer answer : {Answer::kCancel, Answer::kNo, Answer::kYes}) {
      desk.dialogs.answers = {answer};
      MenuClick(desk.window, kToolsMenu, c.row);
      EXPECT_EQ(desk.folder.Holds(c.file), answer != Answer::kYes) << c.file;
    }
    const ScriptedDialogs::Shown expected = {ScriptedDialogs::Kind::kAsk, "Reset Learning System",
                                             c.question, Icon::kExclamation};
    EXPECT_EQ(desk.dialogs.shown[0], expected);
    EXPECT_EQ(desk.dialogs.Told().size(), 1u);
  }
}

TEST(MenuClick, RestoringTheTipsBringsThemBackAndSaysSo) {
  MainDesk desk;
  desk.tips_wanted.never_show = true;
  HideTip(desk.tips_wanted, kPreviewTip, true);
  MenuClick(desk.window, kOptionsMenu, 4);
  EXPECT_FALSE(desk.tips_wanted.never_show);
  EXPECT_FALSE(desk.tips_wanted.hidden[kPreviewTip - 1]);
  const ScriptedDialogs::Shown expected = {ScriptedDialogs::Kind::kTell, "Tarnwell Pocket",
                                           "All tips will now be shown again.", Icon::kInformation};
  EXPECT_EQ(desk.dialogs.shown, std::vector{expected});
}

TEST(MenuClick, NothingBeginsWhileACommandRuns) {
  MainDesk desk;
  desk.view.on_open_mode = [&] {
    MenuClick(desk.window, kHelpMenu, 3);
    picToolBtn_Click(desk.window, kAboutButton);
  };
  MenuClick(desk.window, kOptionsMenu, 3);
  EXPECT_EQ(desk.view.log, Log{"open mode"});
  MenuClick(desk.window, kHelpMenu, 3);
  EXPECT_EQ(desk.view.log.back(), "about");
}

}  // namespace
}  // namespace tarnwell
