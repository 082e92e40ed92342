#include "shell/timers.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "modules/presets.h"
#include "shell/menu_click.h"
#include "shell/menus.h"
#include "tests/support/main_desk.h"

namespace tarnwell {
namespace {

using Texts = std::vector<std::string>;

std::string PresetWithBrightness(int value) {
  frmModules panel = FirstStartPanel();
  SetSliderValue(panel, 3, value);
  return PresetText(panel, {"0", "0", "0", "0"}, "Tarnwell Pocket");
}

// A window past its first tick, and a queue.
struct QueueDesk : MainDesk {
  using MainDesk::MainDesk;
  QueueDesk() { tips_wanted.never_show = true; }

  void Queue(const std::string& text) { folder.Write("program\\queue.ini", text); }
  bool Queued() const { return folder.Holds("program\\queue.ini"); }
};

TEST(Timer1, LoadsThePresetsInTheOrderOfTheirNamesOnce) {
  MainDesk desk;
  desk.folder.Write("program\\Aa.twp", "not a preset");
  desk.folder.Write("program\\b.twp", PresetWithBrightness(20));
  desk.folder.Write("program\\A.twp", PresetWithBrightness(10));
  desk.folder.Write("program\\C.TWP", PresetWithBrightness(30));
  desk.folder.Write("program\\d.txt", PresetWithBrightness(40));
  Timer1_Tick(desk.window);
  EXPECT_EQ(desk.modules.Value(3), 30);
  EXPECT_EQ(desk.window.timer1_interval, 0);
  ASSERT_EQ(desk.dialogs.Told().size(), 1u);
  EXPECT_NE(desk.dialogs.Told()[0].find("Aa.twp"), std::string::npos);

  SetSliderValue(desk.modules, 3, 7);
  Timer1_Tick(desk.window);
  EXPECT_EQ(desk.modules.Value(3), 7);
}

TEST(Timer2, OpensTheFirstQueuedPhoto) {
  for (const char* rest : {"", "\r\n", "\n", "\r\nC:\\other.bmp\r\n"}) {
    SCOPED_TRACE(rest);
    QueueDesk desk;
    const std::string photo = desk.WriteBitmap("new photo.bmp", NoisyPicture(30, 20, 2));
    desk.Queue(photo + rest);
    EXPECT_TRUE(Timer2_Tick(desk.window));
    EXPECT_FALSE(Timer2_Tick(desk.window));
    EXPECT_EQ(desk.app.current_file, photo);
    EXPECT_EQ(desk.form.caption, "new photo.bmp - Tarnwell Pocket");
    EXPECT_FALSE(desk.Queued());
    EXPECT_EQ(desk.dialogs.shown.size(), 0u);
    desk.Queue(photo);
    EXPECT_TRUE(Timer2_Tick(desk.window)) << "the same once more";
  }
}

TEST(Timer2, AsksOnEveryTickUntilTheAnswerIsYesOrNo) {
  QueueDesk desk;
  desk.ShowLargePhoto("C:\\P\\old.jpg");
  desk.app.photo_changed = true;
  const std::string photo = desk.WriteBitmap("new.bmp", NoisyPicture(30, 20, 2));
  desk.Queue(photo);
  desk.dialogs.answers = {Answer::kCancel, Answer::kCancel, Answer::kNo};
  Timer2_Tick(desk.window);
  Timer2_Tick(desk.window);
  EXPECT_TRUE(desk.Queued());
  EXPECT_EQ(desk.app.current_file, "C:\\P\\old.jpg");
  Timer2_Tick(desk.window);
  EXPECT_FALSE(desk.Queued());
  EXPECT_EQ(desk.app.current_file, photo);
  EXPECT_EQ(desk.dialogs.Asked(), Texts(3, "Do you want to save the changes you made to old.jpg?"));
}

TEST(Timer2, SkipsTicksWhileACommandRunsOrTheProgramEnds) {
  QueueDesk desk;
  desk.Queue(desk.WriteBitmap("new.bmp", NoisyPicture(30, 20, 2)));
  desk.view.on_open_mode = [&] { Timer2_Tick(desk.window); };
  MenuClick(desk.window, kOptionsMenu, 3);
  desk.app.closing = true;
  Timer2_Tick(desk.window);
  desk.form.correcting = true;
  desk.app.closing = false;
  Timer2_Tick(desk.window);
  EXPECT_TRUE(desk.Queued());
  desk.form.correcting = false;
  Timer2_Tick(desk.window);
  EXPECT_FALSE(desk.Queued());
}

}  // namespace
}  // namespace tarnwell
