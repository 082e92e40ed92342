#include "shell/shut_down.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "shell/menu_click.h"
#include "shell/menus.h"
#include "shell/start_state.h"
#include "shell/tool_button.h"
#include "tests/support/main_desk.h"

namespace tarnwell {
namespace {

using Log = std::vector<std::string>;

TEST(CloseMainWindow, TakesTheWindowsDownInOrder) {
  MainDesk desk;
  desk.events.on_run = [&](int) {
    desk.view.log.push_back(desk.app.cancel_requested && desk.app.closing ? "events" : "too soon");
  };
  EXPECT_TRUE(CloseMainWindow(desk.window));
  EXPECT_EQ(desk.view.log, (Log{"release drawing", "restore procedure", "events", "unload windows",
                                "remove tray icon"}));
}

TEST(CloseMainWindow, AsksAboutUnsavedChanges) {
  for (const Answer answer : {Answer::kCancel, Answer::kNo, Answer::kYes}) {
    MainDesk desk;
    desk.ShowLargePhoto();
    desk.app.photo_changed = true;
    desk.form.names.output_path = desk.folder.File("saved.bmp");
    desk.dialogs.answers = {answer};
    const bool closes = answer != Answer::kCancel;
    EXPECT_EQ(CloseMainWindow(desk.window), closes);
    EXPECT_EQ(desk.app.closing, closes);
    EXPECT_EQ(desk.view.log.empty(), !closes);
    EXPECT_EQ(desk.dialogs.Asked(),
              Log{"Do you want to save the changes you made to the current image?"});
    EXPECT_EQ(desk.folder.Holds("saved.bmp"), answer == Answer::kYes);
  }
}

TEST(CloseMainWindow, KeepsSettingsAndTipsBeforeTheWindowsGo) {
  MainDesk desk;
  desk.app.power_toys = true;
  SetSliderValue(desk.modules, 3, 33);
  HideTip(desk.tips_wanted, kPreviewTip, true);
  bool kept = false;
  desk.view.on_unload = [&] { kept = desk.folder.Holds("program\\TarnwellPocket.ini"); };
  EXPECT_TRUE(CloseMainWindow(desk.window));
  EXPECT_TRUE(kept);
  EXPECT_TRUE(desk.folder.Holds("program\\powertoys.ini"));

  desk.app.closing = false;
  desk.app.power_toys = false;
  desk.tips_wanted = {};
  SetSliderValue(desk.modules, 3, 0);
  LoadWindowState(desk.window);
  EXPECT_EQ(desk.modules.Value(3), 33);
  EXPECT_TRUE(desk.app.power_toys);
  EXPECT_TRUE(desk.tips_wanted.hidden[kPreviewTip - 1]);
}

TEST(CloseMainWindow, WaitsForARunningCorrection) {
  MainDesk desk;
  desk.Connect();
  desk.ShowLargePhoto();
  bool closed = true;
  const int first = desk.events.runs + 1;
  desk.events.on_run = [&](int run) {
    if (run == first) closed = CloseMainWindow(desk.window);
  };
  picToolBtn_Click(desk.window, kAdjustButton);
  EXPECT_FALSE(closed);
  EXPECT_FALSE(desk.app.photo_changed);  // the run was cancelled
  EXPECT_EQ(desk.view.log, Log{"close"});
  EXPECT_TRUE(CloseMainWindow(desk.window));
}

}  // namespace
}  // namespace tarnwell
