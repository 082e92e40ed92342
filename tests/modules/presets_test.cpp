#include "modules/presets.h"

#include <gtest/gtest.h>
#include <sstream>

#include "modules/white_balance_file.h"
#include "tests/support/panel_desk.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

constexpr const char* kPath = "C:\\looks\\s\xC3\xB8lv.twp";
constexpr const char* kCustomWhite = "C:\\wb\\snow.wbs";

// Every value differs from the panel at first start, but for the flags of modules 0 and 1.
constexpr const char* kPreset =
    "Red: 240\r\nGrn: 230\r\nBlu: 220\r\nSld: 181\r\n"  // lines 1 to 4
    "Tarnwell Pocket Saved Preset File\r\n1.0.0\r\n"
    "1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n1\r\n0\r\n0\r\n1\r\n1\r\n"  // 7 to 20
    // Sliders: 21 to 46.
    "20\r\n11\r\n40\r\n22\r\n60\r\n33\r\n100\r\n9\r\n101\r\n10\r\n102\r\n12\r\n10\r\n5\r\n"
    "11\r\n6\r\n12\r\n7\r\n13\r\n8\r\n14\r\n1\r\n15\r\n-84\r\n182\r\n180\r\n"
    // Check 3, white balance mode, hue marker, skin tone, check 4.
    "0\r\n2\r\n20\r\n80\r\n2\r\n0\r\n\r\n";

constexpr int kLines = 52;
constexpr int kModeLine = 48;  // of the white balance

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line.substr(0, line.size() - 1));
  return lines;
}

// The first `count` lines.
std::string TextOf(const std::vector<std::string>& lines, std::size_t count = kLines) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += lines[i] + "\r\n";
  return text;
}

// kPreset with line `number` (from 1) replaced.
std::string WithLine(int number, const std::string& line) {
  std::vector<std::string> lines = LinesOf(kPreset);
  lines[number - 1] = line;
  return TextOf(lines);
}

Status Load(PanelDesk& desk, const std::string& text) {
  desk.files.files[kPath] = text;
  return PresetLoad(desk.app, desk.platform, desk.panel, kPath);
}

// What holds after a load that came to an end behind `lines` lines: those, and behind them what the
// panel had before.
void ExpectInForce(const PanelDesk& desk, int lines) {
  const auto text_of = [](const frmModules& panel) {
    return LinesOf(PresetText(panel, {"0", "0", "0", "0"}, "Tarnwell Pocket"));
  };
  const auto now = text_of(desk.panel), before = text_of(FirstStartPanel());
  const auto loaded = LinesOf(WithLine(kModeLine, "0"));
  if (lines == kModeLine + 1) --lines;  // half a marker is none
  for (int line = 7; line <= kLines; ++line) {
    EXPECT_EQ(now[line - 1], (line <= lines ? loaded : before)[line - 1]) << "line " << line;
  }
}

TEST(PresetTest, LoadingAndSavingGivesTheSameBytes) {
  PanelDesk desk;
  desk.panel.checks = {"1", "1", "0", "1", "1"};
  // Mode 0 keeps the text of slider 2; mode 2 would convert it anew.
  const std::string text = WithLine(kModeLine, "0") + "\r\n";
  desk.panel.custom_white_file = kCustomWhite;
  desk.files.files[kCustomWhite] = "Red: 240\nGrn: 230\nBlu: 220\nSld: 181\n";
  ASSERT_TRUE(Load(desk, text).ok());
  EXPECT_EQ(desk.panel.checks, (std::array<std::string, 5>{"1", "1", "0", "0", "0"}))
      << "0 to 2 are no part of a preset";

  desk.dialogs.save_files = {"C:\\out.twp"};
  ASSERT_TRUE(PresetSave(desk.app, desk.platform, desk.panel).ok());
  EXPECT_EQ(desk.files.files["C:\\out.twp"], text);
  EXPECT_EQ(LinesOf(text).size(), static_cast<std::size_t>(kLines + 1));
  const ScriptedDialogs::Shown box{ScriptedDialogs::Kind::kSaveFile, "Save Custom Preset",
                                   "Presets File (*.twp)|*.twp"};
  EXPECT_EQ(desk.dialogs.shown, std::vector{box});
}

TEST(PresetTest, NoPhotoIsReplacedWhateverTheUserAnswered) {
  const struct {
    std::string path, bytes;
    bool replaced;
  } kRows[] = {
      {"C:\\a.JPG", "photo", false},
      {"C:\\a.twp", kBaselineJpeg, false},
      {"C:\\a.twp", std::string((1 << 20) + 1, ' '), false},
      {"C:\\a.twp", "half a preset", true},
  };
  for (const auto& row : kRows) {
    PanelDesk desk;
    desk.dialogs.save_files = {row.path};
    desk.files.files[row.path] = row.bytes;
    const Failure failure = row.replaced ? Failure::kNone : Failure::kExists;
    EXPECT_EQ(PresetSave(desk.app, desk.platform, desk.panel).failure, failure);
    if (row.replaced) desk.files.files[row.path] = row.bytes;
    EXPECT_EQ(WriteWhiteBalanceFile(desk.files, row.path, {}).failure, failure);
    EXPECT_EQ(desk.files.files[row.path] == row.bytes, !row.replaced) << row.path;
  }
}

TEST(PresetTest, ModeTwoTakesTheWhiteFromThePresetItself) {
  PanelDesk desk;
  desk.panel.custom_white_file = kCustomWhite;
  desk.files.files[kCustomWhite] = "Red: 1\r\nGrn: 1\r\nBlu: 1\r\nSld: 1\r\n";
  ASSERT_TRUE(Load(desk, kPreset).ok());
  EXPECT_EQ(desk.panel.white_balance_mode, WhiteBalanceMode::kCustomFile);
  EXPECT_EQ(desk.panel.custom_white_file, kPath);
  EXPECT_EQ(desk.panel.lblWhiteClr, (Rgb{240, 230, 220}));
  EXPECT_EQ(desk.panel.sliders[2].text, "100") << "181 / 1.81, over the preset's 33";

  // The white travels on when the panel is saved over the very preset it came from.
  ASSERT_TRUE(WritePreset(desk.app, desk.files, desk.panel, kPath).ok());
  EXPECT_TRUE(desk.files.files[kPath].starts_with("Red: 240\r\nGrn: 230\r\nBlu: 220\r\nSld: 181"));
}

TEST(PresetTest, CutAtAnyLineKeepsWhatStoodBefore) {
  for (int lines = 0; lines < kLines; ++lines) {
    SCOPED_TRACE(lines);
    PanelDesk desk;
    EXPECT_EQ(Load(desk, TextOf(LinesOf(kPreset), lines)).message,
              std::string(kPath) + ": line " + std::to_string(lines + 1) +
                  ": the file ends before this line");
    ExpectInForce(desk, lines);
  }
}

TEST(PresetTest, DamagedLineKeepsWhatStoodBefore) {
  const std::string number = "a whole number is expected here";
  const struct {
    int line;
    const char* text;
    std::string reason;
  } cases[] = {
      {7, "", number},       {20, "open", number}, {21, "12px", number},
      {45, "99999", number}, {48, "x", number},    {48, "3", "0, 1 or 2 is expected here"},
      {49, "nan", number},   {50, "1,5", number},  {51, "Pale", number},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    PanelDesk desk;
    EXPECT_EQ(Load(desk, WithLine(c.line, c.text)).message,
              std::string(kPath) + ": line " + std::to_string(c.line) + ": " + c.reason);
    ExpectInForce(desk, c.line - 1);
  }
}

TEST(PresetTest, LoadAsksForAPathWhenNoneIsGiven) {
  PanelDesk desk;
  desk.files.files["C:\\here\\a.twp"] = WithLine(kModeLine, "0");
  desk.dialogs.open_files = {std::nullopt, "a.twp"};
  const Status cancelled = PresetLoad(desk.app, desk.platform, desk.panel, "");
  EXPECT_EQ(cancelled.failure, Failure::kCancelled);
  EXPECT_EQ(cancelled.message, "");
  ExpectInForce(desk, 0);
  EXPECT_TRUE(PresetLoad(desk.app, desk.platform, desk.panel, "").ok());
  EXPECT_EQ(desk.panel.skin_tones.selected, 2);
  EXPECT_EQ(desk.app.preset_path, "C:\\here\\a.twp");
  const ScriptedDialogs::Shown box{ScriptedDialogs::Kind::kOpenFile, "Load Custom Preset",
                                   "Presets File (*.twp)|*.twp"};
  EXPECT_EQ(desk.dialogs.shown, std::vector(2, box));

  desk.dialogs.save_files = {std::nullopt};
  EXPECT_EQ(PresetSave(desk.app, desk.platform, desk.panel).failure, Failure::kCancelled);
  EXPECT_EQ(desk.files.writes, 0);
  EXPECT_EQ(PresetLoad(desk.app, desk.platform, desk.panel, "C:\\none.twp").failure,
            Failure::kNotFound);
}

}  // namespace
}  // namespace tarnwell
