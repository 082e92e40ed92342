#include "modules/frm_modules.h"

#include <gtest/gtest.h>

#include "tests/support/recording_events.h"

namespace tarnwell {
namespace {

TEST(ModulePanelTest, FirstStartHasTheFactorySettings) {
  const frmModules panel = FirstStartPanel();
  for (int module = 0; module < kModuleCount; ++module) {
    const bool expected = module == 0 || module == 1 || module == 10 || module == 11;
    EXPECT_EQ(panel.IsOpen(module), expected) << kModules[module].title;
  }
  const int values[kSliderCount] = {0, 0, 50, 0, 0, 0, 80, 40, 30, 50, 3, 19, 0};
  for (int slider = 0; slider < kSliderCount; ++slider) {
    EXPECT_EQ(panel.Value(slider), values[slider]) << kSliders[slider].name;
  }
  const bool checked[kCheckCount] = {false, false, true, true, true};
  for (int check = 0; check < kCheckCount; ++check) {
    EXPECT_EQ(panel.IsChecked(check), checked[check]) << kChecks[check].caption;
  }
}

TEST(ModulePanelTest, ClosingSwitchesOffAndKeepsTheSettings) {
  frmModules panel = FirstStartPanel();
  RecordingEvents events;
  PicExpand_Click(panel, kAdjustBrightness, events);
  SetSliderValue(panel, 3, 40);
  PicExpand_Click(panel, kAdjustBrightness, events);
  EXPECT_FALSE(panel.IsOpen(kAdjustBrightness));
  EXPECT_EQ(panel.Value(3), 40);
  PicExpand_Click(panel, kAdjustBrightness, events);
  EXPECT_TRUE(panel.IsOpen(kAdjustBrightness));
}

// A flag from an older settings file may be any number; all but 1 are closed.
TEST(ModulePanelTest, AnyFlagButOneCountsAsClosed) {
  frmModules panel;
  RecordingEvents events;
  for (std::int16_t flag : {std::int16_t{-1}, std::int16_t{2}, std::int16_t{0}}) {
    panel.open[4] = flag;
    PicExpand_Click(panel, 4, events);
    EXPECT_EQ(panel.open[4], 1) << flag;
  }
}

// A click that waited may itself open the module: it is heard first.
TEST(ModulePanelTest, PendingClicksComeBeforeTheToggle) {
  frmModules panel = FirstStartPanel();
  RecordingEvents events;
  events.on_run = [&](int) { panel.open[4] = 1; };
  PicExpand_Click(panel, 4, events);
  EXPECT_FALSE(panel.IsOpen(4));
}

TEST(ModulePanelTest, AClickFlipsACheck) {
  frmModules panel;
  panel.checks[2] = "1";
  PicCheck_Click(panel, 2);
  EXPECT_EQ(panel.checks[2], "0");
  PicCheck_Click(panel, 2);
  EXPECT_EQ(panel.checks[2], "1");
}

}  // namespace
}  // namespace tarnwell
