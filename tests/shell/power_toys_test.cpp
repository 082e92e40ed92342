#include "shell/power_toys.h"

#include <gtest/gtest.h>

#include "tests/support/panel_desk.h"

namespace tarnwell {
namespace {

constexpr char kPath[] = "C:\\TP\\powertoys.ini";

TEST(PowerToysTest, LoadReadsTwoLinesAndTurnsTheMenuOn) {
  const struct {
    const char* text;
    bool noise, full_source;
    int bad_line;  // 0: none
  } kRows[] = {
      {"-1\r\n1\r\n", true, true, 0},   {"0\n0\n", false, false, 0},
      {"-1 \r\n 1 ", true, true, 0},    {"-1\r\n", true, false, 2},
      {"on\r\n1\r\n", false, false, 1}, {"-1\r\n2\r\n", true, false, 2},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.text);
    PanelDesk desk;
    desk.files.files[kPath] = row.text;
    const Status loaded = LoadPowerToys(desk.app, desk.files);
    EXPECT_EQ(loaded.ok(), row.bad_line == 0);
    EXPECT_EQ(loaded.message.find(": line " + std::to_string(row.bad_line)) != std::string::npos,
              row.bad_line != 0);
    EXPECT_TRUE(desk.app.power_toys);
    EXPECT_EQ(desk.app.extended_noise, row.noise);
    EXPECT_EQ(desk.app.analyze_full_source, row.full_source);
    EXPECT_EQ(desk.files.files[kPath], row.text) << "reading changes no file";
  }
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

  EXPECT_EQ(desk.dialogs.Told().size(), 2u);
}

}  // namespace
}  // namespace tarnwell
