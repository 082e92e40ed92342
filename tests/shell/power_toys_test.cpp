#include "shell/power_toys.h"

#include <gtest/gtest.h>

#include "tests/support/panel_desk.h"

namespace tarnwell {
namespace {

constexpr char kPath[] = "C:\\TP\\powertoys.ini";

TEST(PowerToysTest, LoadReadsTwoLinesAndTurnsTheMenuOn) {
  const struct {
    const char* name;
    const char* text;
    bool noise, full_source;
    const char* failure;
  } kRows[] = {
      {"both on", "-1\r\n1\r\n", true, true, ""},
      {"both off, LF", "0\n0\n", false, false, ""},
      {"blanks of a number", "-1 \r\n 1 ", true, true, ""},
      {"second line missing", "-1\r\n", true, false, "C:\\TP\\powertoys.ini: line 2: "},
      {"first line no number", "on\r\n1\r\n", false, false, "C:\\TP\\powertoys.ini: line 1: "},
      {"source unknown", "-1\r\n2\r\n", true, false, "C:\\TP\\powertoys.ini: line 2: "},
      {"empty", "", false, false, "C:\\TP\\powertoys.ini: line 1: "},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    PanelDesk desk;
    desk.files.files[kPath] = row.text;
    const Status loaded = LoadPowerToys(desk.app, desk.files);
    EXPECT_EQ(loaded.ok(), *row.failure == '\0');
    EXPECT_TRUE(loaded.message.starts_with(row.failure)) << loaded.message;
    EXPECT_TRUE(desk.app.power_toys);
    EXPECT_EQ(desk.app.extended_noise, row.noise);
    EXPECT_EQ(desk.app.analyze_full_source, row.full_source);
    EXPECT_EQ(desk.files.files[kPath], row.text) << "reading changes no file";
  }
}

TEST(PowerToysTest, WithoutAFileTheMenuIsOffAndNothingIsWritten) {
  PanelDesk desk;
  EXPECT_TRUE(LoadPowerToys(desk.app, desk.files).ok());
  EXPECT_FALSE(desk.app.power_toys);
  desk.app.extended_noise = desk.app.analyze_full_source = true;
  EXPECT_TRUE(ToySave(desk.app, desk.files).ok());
  EXPECT_TRUE(desk.files.files.empty());
}

TEST(PowerToysTest, ToggleOffDeletesAtOnceAndOnWaitsForTheEnd) {
  PanelDesk desk;
  desk.app.extended_noise = true;
  TurnPowerToysOn(desk.app, desk.platform);
  EXPECT_EQ(desk.files.files[kPath], "-1\r\n0\r\n");
  EXPECT_TRUE(desk.dialogs.shown.empty());

  TogglePowerToys(desk.app, desk.platform);
  EXPECT_FALSE(desk.app.power_toys);
  EXPECT_TRUE(desk.files.files.empty());

  TogglePowerToys(desk.app, desk.platform);
  EXPECT_TRUE(desk.app.power_toys);
  EXPECT_TRUE(desk.files.files.empty());
  EXPECT_TRUE(ToySave(desk.app, desk.files).ok());
  EXPECT_EQ(desk.files.files[kPath], "-1\r\n0\r\n");

  const auto told = [](const char* text) {
    return ScriptedDialogs::Shown{ScriptedDialogs::Kind::kTell, "Tarnwell Pocket", text,
                                  Icon::kInformation};
  };
  EXPECT_EQ(desk.dialogs.shown,
            (std::vector{told("Power toys menu will now not be shown.\r\n\r\nClose and reopen "
                              "software for changes to take effect."),
                         told("Power toys menu will now be shown.\r\n\r\nClose and reopen "
                              "software for changes to take effect.")}));
}

TEST(PowerToysTest, TurningOffWithoutAFileIsNoFailure) {
  PanelDesk desk;
  desk.app.power_toys = true;
  TogglePowerToys(desk.app, desk.platform);
  EXPECT_EQ(desk.dialogs.shown.size(), 1u);
}

}  // namespace
}  // namespace tarnwell
