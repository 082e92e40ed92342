#include "shell/shut_down.h"

#include <gtest/gtest.h>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "shell/menu_click.h"
#include "shell/menus.h"
#include "shell/occupying.h"
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

// From the notification area, or the system: the question stands already.
TEST(CloseMainWindow, ASecondCloseDuringTheQuestionAddsNothing) {
  MainDesk desk;
  desk.ShowLargePhoto();
  desk.app.photo_changed = true;
  desk.dialogs.answers = {Answer::kCancel};
  desk.dialogs.on_box = [&] {
    EXPECT_FALSE(CloseMainWindow(desk.window));
    EXPECT_FALSE(MayEndSession(desk.window));
  };
  EXPECT_FALSE(CloseMainWindow(desk.window));
  EXPECT_EQ(desk.dialogs.Asked().size(), 1u);
  EXPECT_EQ(desk.view.log, Log{}) << "the close was refused";
  EXPECT_FALSE(desk.app.cancel_requested);
}

TEST(CloseMainWindow, AsksAgainAfterASaveThatLackedMemory) {
  MainDesk desk;
  desk.ShowLargePhoto();
  desk.app.photo_changed = true;
  bool lacks = true;
  desk.dialogs.on_box = [&] {
    if (std::exchange(lacks, false)) throw std::bad_alloc();
  };
  EXPECT_FALSE(CloseMainWindow(desk.window));
  EXPECT_EQ(desk.dialogs.Told().back(), "There is not enough memory for this.");
  desk.dialogs.answers = {Answer::kNo};
  EXPECT_TRUE(CloseMainWindow(desk.window));
}

// A window beside the main one asks outside a command, with its own handler on the stack.
TEST(CloseMainWindow, WaitsForABoxThatNoCommandOpened) {
  MainDesk desk;
  OccupyingDialogs dialogs(desk.dialogs, desk.window);
  desk.dialogs.on_box = [&] { EXPECT_FALSE(CloseMainWindow(desk.window)); };
  dialogs.Tell({"", "Color values must be numeric.", Icon::kInformation});
  EXPECT_EQ(desk.view.log, Log{"close"}) << "asked for again behind it";
  EXPECT_TRUE(CloseMainWindow(desk.window));
}

TEST(EndOfSession, AsksAboutUnsavedChangesAndKeepsTheSettings) {
  const struct {
    bool changed, command_runs, automated_photo;
    std::optional<Answer> answer;
    bool may_end;
  } rows[] = {
      {false, false, false, {}, true},          {true, false, false, Answer::kNo, true},
      {true, false, false, Answer::kYes, true}, {true, false, false, Answer::kCancel, false},
      {false, true, false, {}, false},          {true, true, true, {}, true},
  };
  for (const auto& row : rows) {
    MainDesk desk;
    desk.ShowLargePhoto();
    desk.app.photo_changed = row.changed;
    desk.window.occupied = row.command_runs;
    desk.window.pass_running = row.automated_photo;
    desk.form.names.output_path = desk.folder.File("saved.bmp");
    if (row.answer) desk.dialogs.answers = {*row.answer};
    EXPECT_EQ(MayEndSession(desk.window), row.may_end);
    EXPECT_EQ(desk.window.close_wanted, row.command_runs && !row.automated_photo);
    EXPECT_EQ(desk.dialogs.Asked().size(), row.answer ? 1u : 0u);
    EXPECT_EQ(desk.folder.Holds("saved.bmp"), row.answer == Answer::kYes);
    EXPECT_FALSE(desk.app.closing) << "another program may keep the session";
    EXPECT_FALSE(desk.folder.Holds("program\\TarnwellPocket.ini"));
    EndSession(desk.window);
    EXPECT_TRUE(desk.folder.Holds("program\\TarnwellPocket.ini"));
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
