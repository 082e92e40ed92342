#include "modules/white_balance.h"

#include <gtest/gtest.h>

#include "modules/white_balance_file.h"
#include "tests/support/memory_files.h"
#include "tests/support/panel_desk.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

WhiteBalanceSetting Setting(int red, int green, int blue, int position) {
  return {{red, green, blue}, position};
}

TEST(WhiteBalanceFileTest, ReadsWhatStandsBehindTheTags) {
  const std::pair<const char*, WhiteBalanceSetting> cases[] = {
      {"Red: 250\r\nGrn: 128\r\nBlu: 7\r\nSld: 145\r\n", Setting(250, 128, 7, 145)},
      {"Red: 1\nGrn: 2\nBlu: 3\nSld: 4", Setting(1, 2, 3, 4)},
      {"r\xC3\xB6\xC3\xB6t:1\nGrn: 2\nBlu: 3\nSld: 4\nanything\n", Setting(1, 2, 3, 4)},
      {"Red:  10 \nGrn: 20.5\nBlu: 21.5\nSld: 90.5\n", Setting(10, 20, 22, 90)},
      {"Red: -1\nGrn: 256\nBlu: 32767\nSld: 183\n", Setting(0, 255, 255, 182)},
      {"0\r\n0\r\n0\r\n0\r\nTitle\r\n", Setting(0, 0, 0, 0)},  // a preset without a file
  };
  for (const auto& [text, expected] : cases) {
    const auto setting = ParseWhiteBalance(text, "F");
    ASSERT_TRUE(setting.ok()) << setting.status.message;
    EXPECT_EQ(*setting, expected) << text;
  }
}

TEST(WhiteBalanceFileTest, DamageNamesFileAndLine) {
  const std::pair<const char*, int> cases[] = {
      {"Red: \nGrn: 2\nBlu: 3\nSld: 4\n", 1},      {"Red: 1\nGrn: 2\nBlu: 3x\nSld: 4\n", 3},
      {"Red: 1\nGrn: 2\nBlu: 3\nSld: 32768\n", 4}, {"Red: 1\nGrn: 2\n0\nSld: 4\n", 3},
      {"Red: 1\nGrn: 2\nBlu: \x01\nSld: 4\n", 3},
  };
  for (const auto& [text, line] : cases) {
    EXPECT_EQ(ParseWhiteBalance(text, "F").status.message,
              "F: line " + std::to_string(line) +
                  ": a whole number is expected from the sixth character on");
  }
  EXPECT_EQ(ParseWhiteBalance("Red: 1\nGrn: 2\nBlu: 3\n", "F").status.message,
            "F: line 4: the file ends before this line");
}

TEST(WhiteBalanceFileTest, FileHoldsExactlyFourTaggedLines) {
  MemoryFiles files;
  const std::string path = "C:\\fotos \xE2\x82\xAC\\wei\xC3\x9F.wbs";
  ASSERT_TRUE(WriteWhiteBalanceFile(files, path, Setting(255, 0, 12, 90)).ok());
  EXPECT_EQ(files.files[path], "Red: 255\r\nGrn: 0\r\nBlu: 12\r\nSld: 90\r\n");
  EXPECT_EQ(*ReadWhiteBalanceFile(files, path), Setting(255, 0, 12, 90));
  EXPECT_EQ(WhiteBalanceText({}), "Red: 192\r\nGrn: 192\r\nBlu: 192\r\nSld: 91\r\n");
}

constexpr const char* kDefaultFile = "Red: 192\r\nGrn: 192\r\nBlu: 192\r\nSld: 91\r\n";
constexpr const char* kCustomFile = "Red: 10\r\nGrn: 20\r\nBlu: 30\r\nSld: 181\r\n";

class WhiteBalanceTest : public ::testing::Test {
 protected:
  void Select(WhiteBalanceMode mode) { picMode_Click(desk.app, desk.platform, desk.panel, mode); }

  PanelDesk desk;
};

TEST_F(WhiteBalanceTest, TheModesFileIsMadeOnceAndThenOnlyRead) {
  desk.panel.lblWhiteClr = {1, 2, 3};
  Select(WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(desk.files.files[desk.ModeFile()], kDefaultFile);
  EXPECT_EQ(desk.panel.lblWhiteClr, (Rgb{192, 192, 192}));
  EXPECT_EQ(desk.panel.sliders[2].text, "50");
  EXPECT_EQ(desk.panel.sliders[2].position, 90) << "50 x 1.81 = 90.5, to the even neighbour";
  desk.files.files[desk.ModeFile()] = kCustomFile;
  Select(WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(desk.panel.lblWhiteClr, (Rgb{10, 20, 30}));
  EXPECT_EQ(desk.panel.sliders[2].text, "100");
  EXPECT_EQ(desk.files.writes, 1);
}

TEST_F(WhiteBalanceTest, DamagedModeFileIsToldAndKeepsTheReference) {
  desk.files.files[desk.ModeFile()] = "Red: 1\r\nGrn: x\r\n";
  desk.panel.lblWhiteClr = {1, 2, 3};
  Select(WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(
      desk.dialogs.Told(),
      std::vector<std::string>{desk.ModeFile() +
                               ": line 2: a whole number is expected from the sixth character on"});
  EXPECT_EQ(desk.panel.lblWhiteClr, (Rgb{1, 2, 3}));
  EXPECT_EQ(desk.panel.sliders[2].text, "50");
  EXPECT_FALSE(desk.panel.white_swatch_visible);
  EXPECT_EQ(desk.files.writes, 0);
}

TEST_F(WhiteBalanceTest, OnlyAReadableFileTakesThePlaceOfTheOneBefore) {
  desk.files.files["C:\\bad.wbs"] = "Red: 1\r\nGrn: x\r\n";
  desk.files.files["C:\\good.wbs"] = kCustomFile;
  const struct {
    const char* chosen;
    const char* in_use;
    WhiteBalanceMode mode;
    std::size_t told;
  } steps[] = {{"C:\\bad.wbs", "", WhiteBalanceMode::kModeDefault, 1},
               {"C:\\missing.wbs", "", WhiteBalanceMode::kModeDefault, 1},
               {"C:\\good.wbs", "C:\\good.wbs", WhiteBalanceMode::kCustomFile, 1},
               {"C:\\bad.wbs", "C:\\good.wbs", WhiteBalanceMode::kCustomFile, 2}};
  for (const auto& step : steps) {
    SCOPED_TRACE(step.chosen);
    desk.panel.white_balance_mode = WhiteBalanceMode::kCustomFile;
    desk.dialogs.open_files = {step.chosen};
    OpenWhiteBalance(desk.app, desk.platform, desk.panel);
    EXPECT_EQ(desk.panel.custom_white_file, step.in_use);
    EXPECT_EQ(desk.panel.white_balance_mode, step.mode);
    EXPECT_EQ(desk.dialogs.Told().size(), step.told);
  }
  EXPECT_EQ(desk.panel.lblWhiteClr, (Rgb{10, 20, 30}));
}

TEST_F(WhiteBalanceTest, SavesWhereTheAnswerSays) {
  SetPickedWhite(desk.panel, {255, 255, 255});
  desk.panel.sliders[2].position = 145;
  const std::string expected = "Red: 255\r\nGrn: 255\r\nBlu: 255\r\nSld: 145\r\n";

  frmWhiteBalnc window;
  WhiteBalncCancel(window);
  SaveWhiteBalanceSetting(desk.app, desk.platform, desk.panel, window);
  EXPECT_EQ(desk.files.writes, 0);

  WhiteBalncOk(window);
  desk.dialogs.save_files = {std::nullopt, "C:\\mine.wbs"};
  SaveWhiteBalanceSetting(desk.app, desk.platform, desk.panel, window);
  EXPECT_EQ(desk.files.writes, 0) << "backed out of the file dialog";
  SaveWhiteBalanceSetting(desk.app, desk.platform, desk.panel, window);
  EXPECT_EQ(desk.files.files["C:\\mine.wbs"], expected);
  EXPECT_EQ(desk.dialogs.shown.back().title, "Save White Balance Setting");

  window.default_chosen = true;
  WhiteBalncOk(window);
  SaveWhiteBalanceSetting(desk.app, desk.platform, desk.panel, window);
  EXPECT_EQ(desk.files.files[desk.ModeFile()], expected);
  EXPECT_EQ(desk.dialogs.shown.size(), 2u) << "the default's place is known";

  desk.files.refuse_writes = true;
  SaveWhiteBalanceSetting(desk.app, desk.platform, desk.panel, window);
  EXPECT_EQ(desk.dialogs.Told(), std::vector<std::string>{desk.ModeFile() + ": the disk is full"});
}

TEST(GetWhiteClrTest, IsTheMeanOfNinePixelsRoundedDown) {
  // Red counts the pixels 0 to 8, green is 255 in the middle only, blue is 200 everywhere.
  const auto photo = PictureOf(3, {{0, 0, 200},
                                   {1, 0, 200},
                                   {2, 0, 200},
                                   {3, 0, 200},
                                   {4, 255, 200},
                                   {5, 0, 200},
                                   {6, 0, 200},
                                   {7, 0, 200},
                                   {8, 0, 200}});
  const struct {
    const char* name;
    int x, y;
    Rgb expected;
  } cases[] = {
      {"middle", 1, 1, {4, 28, 200}},  // 36 / 9, 255 / 9 = 28.3
      // The corner's nine: 0 0 1 0 0 1 3 3 4 = 12; green once.
      {"corner", 0, 0, {1, 28, 200}},
      // Right edge: 1 2 2 4 5 5 7 8 8 = 42.
      {"edge", 2, 1, {4, 28, 200}},
      {"far outside is the nearest pixel", -2147483647 - 1, -5, {1, 28, 200}},
      // Far corner: 4 5 5 7 8 8 7 8 8 = 60.
      {"far outside the other way", 2147483647, 99, {6, 28, 200}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(GetWhiteClr(photo->view(), c.x, c.y), c.expected);
  }
  EXPECT_EQ(GetWhiteClr(PixelView(), 0, 0), (Rgb{0, 0, 0}));
}

}  // namespace
}  // namespace tarnwell
