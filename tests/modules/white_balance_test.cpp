#include "modules/white_balance.h"

#include <gtest/gtest.h>

#include "tests/support/panel_desk.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

constexpr const char* kDefaultFile = "Red: 192\r\nGrn: 192\r\nBlu: 192\r\nSld: 91\r\n";
constexpr const char* kCustomFile = "Red: 10\r\nGrn: 20\r\nBlu: 30\r\nSld: 181\r\n";

class WhiteBalanceTest : public ::testing::Test {
 protected:
  void Select(WhiteBalanceMode mode) { picMode_Click(desk.app, desk.platform, desk.panel, mode); }

  PanelDesk desk;
};

TEST_F(WhiteBalanceTest, FreshModeFolderGetsTheDefaultFile) {
  desk.panel.lblWhiteClr = {1, 2, 3};
  Select(WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(desk.files.files[desk.ModeFile()], kDefaultFile);
  EXPECT_EQ(desk.panel.lblWhiteClr, (Rgb{192, 192, 192}));
  EXPECT_TRUE(desk.panel.white_swatch_visible);
  EXPECT_EQ(desk.panel.sliders[2].text, "50");
  EXPECT_EQ(desk.panel.sliders[2].position, 90) << "50 x 1.81 = 90.5, to the even neighbour";
}

TEST_F(WhiteBalanceTest, ExistingModeFileIsReadAndNotTouched) {
  desk.files.files[desk.ModeFile()] = kCustomFile;
  Select(WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(desk.panel.lblWhiteClr, (Rgb{10, 20, 30}));
  EXPECT_EQ(desk.panel.sliders[2].text, "100");
  EXPECT_EQ(desk.files.writes, 0);
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

TEST_F(WhiteBalanceTest, PickingOpensTheZoomAndShowsAnEarlierPick) {
  Select(WhiteBalanceMode::kModeDefault);
  Select(WhiteBalanceMode::kPickedPixel);
  EXPECT_EQ(desk.zooms, std::vector{ZoomMode::kPickWhite});
  EXPECT_FALSE(desk.panel.white_swatch_visible);
  EXPECT_TRUE(lblModeSet(desk.panel, 0).visible);
  EXPECT_EQ(lblModeSet(desk.panel, 0).text, "~");

  SetPickedWhite(desk.panel, {250, 240, 230});
  Select(WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(desk.panel.lblWhiteClr, (Rgb{192, 192, 192}));
  EXPECT_FALSE(lblModeSet(desk.panel, 0).visible);
  Select(WhiteBalanceMode::kPickedPixel);
  EXPECT_EQ(desk.panel.lblWhiteClr, (Rgb{250, 240, 230}));
  EXPECT_TRUE(desk.panel.white_swatch_visible);
}

TEST_F(WhiteBalanceTest, CustomModeAsksForAFileOnlyWhenThereIsNone) {
  const std::string path = "C:\\wb\\sn\xC3\xB8.wbs";
  desk.files.files[path] = kCustomFile;
  desk.dialogs.open_files = {path};
  Select(WhiteBalanceMode::kCustomFile);
  EXPECT_EQ(desk.panel.custom_white_file, path);
  EXPECT_EQ(lblModeSet(desk.panel, 1).text, "sn\xC3\xB8.wbs");
  EXPECT_EQ(desk.panel.lblWhiteClr, (Rgb{10, 20, 30}));
  const ScriptedDialogs::Shown box{ScriptedDialogs::Kind::kOpenFile, "Open White Balance",
                                   "White Balance Setting (*.wbs)|*.wbs"};
  EXPECT_EQ(desk.dialogs.shown, std::vector{box});

  Select(WhiteBalanceMode::kModeDefault);
  Select(WhiteBalanceMode::kCustomFile);
  EXPECT_EQ(desk.dialogs.shown.size(), 1u) << "no second question";
  EXPECT_TRUE(lblModeSet(desk.panel, 1).visible);
}

TEST_F(WhiteBalanceTest, BackingOutOfOpenKeepsTheFileInUseOrFallsBackToTheDefault) {
  const std::vector<std::optional<std::string>> ways_out = {std::nullopt, "C:\\missing.wbs"};
  for (const auto& way_out : ways_out) {
    PanelDesk fresh;
    fresh.dialogs.open_files = {way_out, way_out};
    picMode_Click(fresh.app, fresh.platform, fresh.panel, WhiteBalanceMode::kCustomFile);
    EXPECT_EQ(fresh.panel.white_balance_mode, WhiteBalanceMode::kModeDefault);
    EXPECT_EQ(fresh.files.files[fresh.ModeFile()], kDefaultFile);

    fresh.panel.white_balance_mode = WhiteBalanceMode::kCustomFile;
    fresh.panel.custom_white_file = "C:\\old.wbs";
    OpenWhiteBalance(fresh.app, fresh.platform, fresh.panel);
    EXPECT_EQ(fresh.panel.custom_white_file, "C:\\old.wbs");
    EXPECT_EQ(fresh.panel.white_balance_mode, WhiteBalanceMode::kCustomFile);
    EXPECT_TRUE(fresh.dialogs.Told().empty());
  }
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
  PixelArray photo(3, 3);
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 3; ++x) {
      std::uint8_t* pixel = photo.mutable_view().data + 4 * (3 * y + x);
      pixel[kRed] = static_cast<std::uint8_t>(3 * y + x);
      pixel[kGreen] = x == 1 && y == 1 ? 255 : 0;
      pixel[kBlue] = 200;
    }
  }
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
    EXPECT_EQ(GetWhiteClr(photo.view(), c.x, c.y), c.expected);
  }
  EXPECT_EQ(GetWhiteClr(PixelView(), 0, 0), (Rgb{0, 0, 0}));
}

}  // namespace
}  // namespace tarnwell
