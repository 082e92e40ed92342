#include "automation/auto_window.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "automation/switched_dialogs.h"
#include "automation/unattended_dialogs.h"
#include "modules/module_table.h"
#include "shell/shut_down.h"
#include "shell/tool_button.h"
#include "tests/support/main_desk.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

using Lines = std::vector<std::string>;

// A main window with the automated mode over "in", "out" and "done" of its folder.
struct AutoDesk : MainDesk, AutoModeView, Tray {
  UnattendedDialogs nobody{[this](const std::string& text) { automated.Report(text); }};
  SwitchedDialogs switched{dialogs, nobody};
  Platform gated{*files, *codec, *jpeg, switched, events, clock, clipboard};
  Form1 auto_form{.app = app, .platform = gated, .modules = modules, .progress = progress};
  MainWindow auto_main{.form = auto_form, .view = view, .tips = tips_wanted};
  AutoWindow automated{auto_main, switched, *this, *this};
  Lines shown, tips_shown, notified;
  std::function<bool(frmAutoSetup&)> on_setup = [](frmAutoSetup&) { return false; };

  AutoDesk() {
    auto_form.ShowNotification = [this](const std::string& text, int) { notified.push_back(text); };
    app.open_mode = 2;
    for (const char* name : {"in", "out", "done"}) folder.MakeFolder(name);
  }
  bool SetUp(frmAutoSetup& setup) {
    for (int i = 0; i < 3; ++i) setup.Text1[i] = folder.File(std::array{"in", "out", "done"}[i]);
    return true;
  }
  void Begin() {
    on_setup = [this](frmAutoSetup& setup) { return SetUp(setup); };
    automated.Load();
    automated.Start();
    shown.clear();
  }
  void Arrive(const std::string& name) { folder.Write("in\\" + name, kBaselineJpeg); }
  void Take() {
    for (int tick = 0; tick < 2; ++tick) {
      clock.now += 1'000'000'000;
      automated.Tick();
    }
  }

  void ModeStarted() override { shown.push_back("started"); }
  void ModeEnded() override { shown.push_back("ended"); }
  bool AskSetup(frmAutoSetup& setup) override {
    shown.push_back("setup");
    return on_setup(setup);
  }
  void ShowStatusWindow() override { shown.push_back("status"); }
  void UpdateStatusWindow() override {}
  void SetIcon(TrayPicture) override {}
  void SetTip(const std::string& tip) override { tips_shown.push_back(tip); }
  void Remove() override { tips_shown.push_back("removed"); }
};

TEST(AutoWindowTest, StartsOnlyWithFoldersAndWithoutLosingChanges) {
  AutoDesk desk;
  desk.automated.Load();
  desk.automated.Start();
  EXPECT_EQ(desk.shown, Lines{"setup"});
  EXPECT_FALSE(desk.automated.mode().automated);

  desk.on_setup = [&](frmAutoSetup& setup) { return desk.SetUp(setup); };
  desk.app.photo_changed = true;
  desk.dialogs.answers = {Answer::kCancel, Answer::kNo};
  desk.automated.Start();
  EXPECT_FALSE(desk.automated.mode().automated);
  desk.automated.Start();
  EXPECT_TRUE(desk.automated.mode().automated && desk.auto_main.automated_mode);
  EXPECT_EQ(desk.shown, (Lines{"setup", "setup", "started"}));
  EXPECT_EQ(desk.folder.Read("program\\autosetup.ini"), desk.folder.File("in") + "\\\r\n" +
                                                            desk.folder.File("out") + "\\\r\n" +
                                                            desk.folder.File("done") + "\\\r\n");
  desk.Take();
  EXPECT_EQ(desk.tips_shown, (Lines{"Tarnwell Pocket", "Automated Mode Running (Idle)"}));
  desk.automated.TrayMenuClick(kTrayAutomatedMode);
  desk.automated.RemoveIcon();
  EXPECT_FALSE(desk.automated.mode().automated || desk.auto_main.automated_mode);
  EXPECT_EQ(desk.tips_shown.back(), "removed");
}

// The mode's photo must not change under it, and nobody answers a box at night.
TEST(AutoWindowTest, NoCommandAndNoBoxComesBetweenTheStepsOfAPhoto) {
  AutoDesk desk;
  desk.Begin();
  desk.Arrive("a.jpg");
  desk.modules.open[kSmartWhiteBalance] = 1;  // without a white balance, which is told
  int pressed = 0;
  desk.events.on_run = [&](int) {
    if (!desk.auto_main.occupied) return;
    ++pressed;
    picToolBtn_Click(desk.auto_main, kOpenButton);
    desk.automated.TrayMenuClick(kTraySetup);
    desk.automated.Tick();
  };
  desk.Take();
  EXPECT_GT(pressed, 0);
  EXPECT_EQ(desk.dialogs.shown.size(), 0u);
  EXPECT_EQ(desk.folder.Names("done"), Lines{"a.jpg"});
  EXPECT_EQ(desk.notified, Lines{desk.folder.File("out\\a.jpg")});
  ASSERT_EQ(desk.automated.mode().window.problems.size(), 1u);
  EXPECT_NE(desk.automated.mode().window.problems[0].find("white balance"), std::string::npos);
  EXPECT_EQ(desk.view.log, Lines{"automated setup"}) << "the tray's choice is made up for";
  EXPECT_FALSE(desk.switched.nobody_there);
}

TEST(AutoWindowTest, AnEndDuringAPhotoIsWhatTheStatusSays) {
  AutoDesk desk;
  desk.Begin();
  desk.Arrive("a.jpg");
  desk.events.on_run = [&](int) {
    if (desk.auto_main.occupied && desk.automated.mode().automated) desk.automated.End();
  };
  desk.Take();
  EXPECT_FALSE(desk.automated.mode().automated);
  EXPECT_EQ(desk.automated.mode().window.lblStatus, "The automated mode is off.");
}

TEST(AutoWindowTest, ACloseDuringAPassEndsItFirst) {
  for (const bool within_photo : {true, false}) {
    SCOPED_TRACE(within_photo);
    AutoDesk desk;
    desk.Begin();
    desk.Arrive("a.jpg");
    desk.Arrive("b.jpg");
    desk.events.on_run = [&](int) {
      const bool working = desk.automated.mode().worked;
      if (!working || desk.auto_main.occupied != within_photo) return;
      EXPECT_FALSE(CloseMainWindow(desk.auto_main));
    };
    desk.Take();
    EXPECT_EQ(desk.folder.Names("in"), within_photo ? Lines({"a.jpg", "b.jpg"}) : Lines{"b.jpg"});
    EXPECT_EQ(desk.folder.Names("out"), within_photo ? Lines{} : Lines{"a.jpg"});
    ASSERT_EQ(desk.view.log, Lines{"close"});
    desk.events.on_run = [](int) {};
    EXPECT_TRUE(CloseMainWindow(desk.auto_main));
    EXPECT_EQ(desk.dialogs.shown.size(), 0u);
  }
}

}  // namespace
}  // namespace tarnwell
