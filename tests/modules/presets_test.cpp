#include "modules/presets.h"

#include <gtest/gtest.h>
#include <sstream>

#include "tests/support/panel_desk.h"

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

// The parts of the panel that a preset carries, and those it must leave alone.
void ExpectSame(const frmModules& a, const frmModules& b) {
  EXPECT_EQ(a.open, b.open);
  for (int i = 0; i < kSliderCount; ++i) {
    EXPECT_EQ(a.sliders[i].position, b.sliders[i].position) << "slider " << i;
    EXPECT_EQ(a.sliders[i].text, b.sliders[i].text) << "slider " << i;
  }
  EXPECT_EQ(a.checks, b.checks);
  EXPECT_EQ(a.white_balance_mode, b.white_balance_mode);
  EXPECT_EQ(a.lblWhiteClr, b.lblWhiteClr);
  EXPECT_EQ(a.custom_white_file, b.custom_white_file);
  EXPECT_EQ(a.hue.marker_x, b.hue.marker_x);
  EXPECT_EQ(a.hue.marker_y, b.hue.marker_y);
  EXPECT_EQ(a.hue.factors, b.hue.factors);
  EXPECT_EQ(a.skin_tones, b.skin_tones);
  EXPECT_EQ(a.rotation, b.rotation);
}

TEST(PresetTest, LoadingAndSavingGivesTheSameBytes) {
  PanelDesk desk;
  desk.panel.checks = {"1", "1", "0", "1", "1"};
  // Mode 0 keeps the text of slider 2; mode 2 would convert it anew.
  const std::string text = WithLine(48, "0") + "\r\n";
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

// What the first `lines` lines of kPreset make of the panel at first start, part by part.
frmModules AfterLines(int lines) {
  const auto has = [lines](int line) { return line <= lines; };
  const std::vector<std::string> all = LinesOf(kPreset);
  frmModules panel = FirstStartPanel();
  for (int module = 0; module < 14; ++module) {
    if (has(7 + module)) panel.open[module] = static_cast<std::int16_t>(std::stoi(all[6 + module]));
  }
  for (int slider = 0; slider < 13; ++slider) {
    if (has(21 + 2 * slider)) panel.sliders[slider].position = std::stoi(all[20 + 2 * slider]);
    if (has(22 + 2 * slider)) panel.sliders[slider].text = all[21 + 2 * slider];
  }
  if (has(47)) panel.checks[3] = "0";
  if (has(48)) panel.custom_white_file = kPath;
  if (has(50)) MoveHueMarker(panel.hue, 20, 80);
  if (has(51)) panel.skin_tones.selected = 2;
  if (has(52)) panel.checks[4] = "0";
  return panel;
}

TEST(PresetTest, CutAtAnyLineKeepsWhatStoodBefore) {
  for (int lines = 0; lines < kLines; ++lines) {
    SCOPED_TRACE(lines);
    PanelDesk desk;
    EXPECT_EQ(Load(desk, TextOf(LinesOf(kPreset), lines)).message,
              std::string(kPath) + ": line " + std::to_string(lines + 1) +
                  ": the file ends before this line");
    ExpectSame(desk.panel, AfterLines(lines));
  }
}

TEST(PresetTest, DamagedLineKeepsWhatStoodBefore) {
  const std::string number = "a whole number is expected here";
  const struct {
    int line;
    const char* text;
    std::string reason;
    int in_force;  // lines
  } cases[] = {
      {7, "", number, 6},       {20, "open", number, 19},
      {21, "12px", number, 20}, {45, "99999", number, 44},
      {48, "x", number, 47},    {48, "3", "0, 1 or 2 is expected here", 47},
      {49, "nan", number, 48},  {50, "1,5", number, 49},
      {51, "Pale", number, 50},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    PanelDesk desk;
    EXPECT_EQ(Load(desk, WithLine(c.line, c.text)).message,
              std::string(kPath) + ": line " + std::to_string(c.line) + ": " + c.reason);
    ExpectSame(desk.panel, AfterLines(c.in_force));
  }
}

TEST(PresetTest, LoadAsksForAPathWhenNoneIsGiven) {
  PanelDesk desk;
  desk.files.files["C:\\here\\a.twp"] = WithLine(48, "0");
  desk.dialogs.open_files = {std::nullopt, "a.twp"};
  const Status cancelled = PresetLoad(desk.app, desk.platform, desk.panel, "");
  EXPECT_EQ(cancelled.failure, Failure::kCancelled);
  EXPECT_EQ(cancelled.message, "");
  ExpectSame(desk.panel, FirstStartPanel());
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
