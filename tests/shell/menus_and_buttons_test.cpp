#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "shell/menu_click.h"
#include "shell/menus.h"
#include "shell/tips.h"
#include "shell/tool_button.h"
#include "tests/support/main_desk.h"

namespace tarnwell {
namespace {

using Log = std::vector<std::string>;

TEST(Menus, RowsWaitForThePhotoThatTheyWorkOn) {
  struct Case {
    int menu, row;
    bool without_photo, pasted, with_file;
  };
  const Case cases[] = {
      {kFileMenu, 0, true, true, true},     {kFileMenu, 1, false, true, true},
      {kFileMenu, 3, false, false, false},  {kEditMenu, 0, false, true, true},
      {kEditMenu, 1, true, true, true},     {kToolsMenu, 5, true, true, true},
      {kToolsMenu, 8, false, false, true},  {kHelpMenu, 0, true, true, true},
      {kHelpMenu, 9, false, false, false},  {9, 0, false, false, false},
      {kFileMenu, -1, false, false, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << c.menu << ' ' << c.row);
    MainDesk desk;
    EXPECT_EQ(IsRowEnabled(desk.form, c.menu, c.row), c.without_photo);
    desk.ShowLargePhoto();
    EXPECT_EQ(IsRowEnabled(desk.form, c.menu, c.row), c.pasted);
    desk.app.current_file = "C:\\P\\a.jpg";
    EXPECT_EQ(IsRowEnabled(desk.form, c.menu, c.row), c.with_file);
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
        if (IsRowChecked(desk.window, menu, row)) checked.push_back({menu, row});
      }
    }
    EXPECT_EQ(checked, c.checked) << "after " << c.menu << ' ' << c.row;
  }
  EXPECT_EQ(desk.view.refreshes, 7);
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

TEST(MenuClick, ACommandWithoutMemoryEndsWithAMessageAndTheNextOneRuns) {
  MainDesk desk;
  desk.view.on_open_mode = [] { throw std::bad_alloc(); };
  desk.view.menu_choice = 3;
  MenuClick(desk.window, kOptionsMenu, 3);
  picToolBtn_Click(desk.window, kOptionsButton);
  EXPECT_EQ(desk.dialogs.Told(), Log(2, "There is not enough memory for this."));
  EXPECT_FALSE(IsOccupied(desk.window));
}

TEST(ToolButton, WindowsComeUp) {
  MainDesk desk;
  const int buttons[] = {kTipsButton,          kModulesButton,        kAboutButton,
                         kAutomatedModeButton, kAutomatedSetupButton, kAdjustButton,
                         kToolButtonCount};
  for (const int button : buttons) picToolBtn_Click(desk.window, button);
  EXPECT_EQ(desk.view.log,
            (Log{"tip 1", "modules", "tip 5", "about", "automated mode", "automated setup"}));
}

TEST(ToolButton, WhatIsMissingSaysSo) {
  MainDesk desk;
  picToolBtn_Click(desk.window, kNotImplementedButton);
  desk.view.outcome = Status::Error(Failure::kNotFound, "TarnwellPocket.hlp: does not exist");
  picToolBtn_Click(desk.window, kHelpButton);
  EXPECT_EQ(desk.dialogs.Told(),
            (Log{"Feature not implemented", "TarnwellPocket.hlp: does not exist"}));
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

TEST(ToolButton, AShortcutIsMadeForYesOnly) {
  MainDesk desk;
  desk.dialogs.answers = {Answer::kNo, Answer::kYes};
  picToolBtn_Click(desk.window, kQuickLaunchButton);
  EXPECT_EQ(desk.view.log, Log{});
  picToolBtn_Click(desk.window, kQuickLaunchButton);
  EXPECT_EQ(desk.view.log, Log{"shortcut"});
}

// What the user saves at the window needs no announcement; it stands in the status bar.
TEST(ToolButton, SavingAnnouncesNothing) {
  MainDesk desk;
  const std::string photo = desk.WriteBitmap("a.bmp", NoisyPicture(30, 20, 2));
  ASSERT_TRUE(OpenPhotoFile(desk.form, photo).ok());
  picToolBtn_Click(desk.window, kAdjustButton);
  picToolBtn_Click(desk.window, kSaveButton);
  EXPECT_TRUE(desk.folder.Holds("aA.bmp"));
  EXPECT_EQ(desk.notifications.size(), 0u);
}

TEST(ToolButton, AHelpFileOfItsOwnComesBeforeThePage) {
  MainDesk desk;
  picToolBtn_Click(desk.window, kHelpButton);
  desk.folder.Write("program\\TarnwellPocket.hlp", "help");
  picToolBtn_Click(desk.window, kHelpButton);
  EXPECT_EQ(desk.view.log, (Log{"help " + desk.app.program_folder + "TarnwellPocket.html",
                                "help " + desk.app.help_file}));
}

TEST(Tips, ATipIsOfferedOnceUnlessItIsPutAway) {
  MainDesk desk;
  HideTip(desk.tips_wanted, kModuleSwitchTip, true);
  // One that comes while another is read waits for its next time.
  desk.view.tips_shown = true;
  OfferTip(desk.window, 1);
  desk.view.tips_shown = false;
  for (int tip : {1, 2, 1, 3, 3, 0, kTipCount + 1}) OfferTip(desk.window, tip);
  EXPECT_EQ(desk.view.log, (Log{"tip 1", "tip 3"}));
  desk.tips_wanted.never_show = true;
  OfferTip(desk.window, 5);
  EXPECT_EQ(desk.view.log.size(), 2u);
  RestoreAllTips(desk.tips_wanted);
  OfferTip(desk.window, 1);
  OfferTip(desk.window, 2);
  EXPECT_EQ(desk.view.log.size(), 4u);
}

TEST(Tips, AModuleThatIsOpenedHasItsOwn) {
  MainDesk desk;
  desk.modules.open = {};
  OfferModuleTip(desk.window, kSmartPhotoCorrection);
  OfferModuleTip(desk.window, kAdjustBrightness);
  EXPECT_EQ(desk.view.log, (Log{"tip " + std::to_string(kSmartCorrectionTip),
                                "tip " + std::to_string(kModuleSwitchTip)}));
}

TEST(Tips, OpeningAPhotoOffersThePreviewAndMissesDeadPixels) {
  MainDesk desk;
  desk.Connect();
  desk.app.open_mode = 2;
  desk.modules.open[kDeadPixelCorrection] = 1;
  const std::string photo = desk.WriteBitmap("a.bmp", NoisyPicture(30, 20, 2));
  for (int time = 0; time < 2; ++time) ASSERT_TRUE(OpenPhotoFile(desk.form, photo).ok());
  EXPECT_EQ(desk.view.log, (Log{"tip 3", "tip 6"}));
}

}  // namespace
}  // namespace tarnwell
