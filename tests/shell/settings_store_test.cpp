#include "shell/settings_store.h"

#include <gtest/gtest.h>
#include <sstream>

#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

constexpr char kFile[] = "program\\TarnwellPocket.ini";
constexpr int kLines = 67;

// Every value differs from a program at first start.
std::vector<std::string> Lines() {
  const char* const text = TARNWELL_VERSION
      "|1|2,7|1|1|My Phone|Night|3|2|"                              // 1 to 9
      "20|11|40|22|60|33|100|9|101|10|102|12|10|5|11|6|12|7|13|8|"  // sliders 0 to 9
      "14|1|15|-84|182|180|"                                        // sliders 10 to 12
      "1|1|0|0|0|"                                                  // checks: 36 to 40
      "0|0|1|1|1|1|1|1|1|1|0|0|1|1|"                                // flags: 41 to 54
      "2|C:\\wb\\snow.wbs|1|250|240|230|20|80|1|-8|-9|1936|1056";   // 55 to 67
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line, '|');) lines.push_back(line);
  return lines;
}

std::string TextOf(const std::vector<std::string>& lines, const char* line_end = "\r\n") {
  std::string text;
  for (const std::string& line : lines) text += line + line_end;
  return text;
}

// The settings with line `number` (from 1) replaced.
std::string WithLine(int number, const std::string& line) {
  std::vector<std::string> lines = Lines();
  lines[number - 1] = line;
  return TextOf(lines);
}

std::string LineOf(const std::string& text, int number) {
  std::istringstream in(text);
  std::string line;
  for (int i = 0; i < number; ++i) std::getline(in, line);
  return line.substr(0, line.size() - 1);
}

Status Load(TestWindow& window, const std::string& text) {
  window.folder.Write(kFile, text);
  return LoadLastUsedSettings(window.form);
}

std::string Saved(TestWindow& window) {
  const Status saved = INISave(window.form);
  EXPECT_TRUE(saved.ok()) << saved.message;
  return window.folder.Read(kFile);
}

TEST(LastUsedSettingsTest, EveryLineComesBackAndGivesTheSameBytes) {
  for (const char* line_end : {"\r\n", "\n"}) {
    TestWindow window;
    const Status loaded = Load(window, TextOf(Lines(), line_end));
    ASSERT_TRUE(loaded.ok()) << loaded.message;
    EXPECT_EQ(Saved(window), TextOf(Lines()));
    ASSERT_EQ(Lines().size(), std::size_t{kLines});

    const frmModules& panel = window.modules;
    EXPECT_EQ(window.form.memory.hidden_tips, "2,7");
    EXPECT_EQ(window.app.open_mode, 1);
    EXPECT_TRUE(window.app.auto_preview);
    EXPECT_EQ(panel.camera + "/" + panel.mode, "My Phone/Night");
    EXPECT_EQ(panel.sliders[2].position, 60) << "not snapped";
    EXPECT_EQ(panel.sliders[2].text, "33");
    EXPECT_EQ(panel.sliders[11].text, "-84");
    EXPECT_FALSE(panel.IsOpen(kCameraAndMode));
    EXPECT_EQ(panel.white_balance_mode, WhiteBalanceMode::kCustomFile);
    EXPECT_EQ(panel.picked_white, (Rgb{250, 240, 230}));
    EXPECT_NE(panel.hue.factors[0], 0) << "the factors follow the marker";
    EXPECT_EQ(window.form.memory.placement,
              (WindowPlacement{true, WindowBounds(), {-8, -9, 1936, 1056}}));
  }
}

TEST(LastUsedSettingsTest, MissingAndForeignFilesChangeNothing) {
  TestWindow window;
  const std::string defaults = Saved(window);
  ASSERT_TRUE(window.files->Delete(window.app.settings_file).ok());
  EXPECT_TRUE(LoadLastUsedSettings(window.form).ok()) << "no file";
  for (const std::string& text :
       {std::string(), WithLine(1, "0.9.9"), WithLine(1, ""), WithLine(1, TARNWELL_VERSION ".1")}) {
    EXPECT_TRUE(Load(window, text).ok()) << text.substr(0, 10);
    EXPECT_EQ(window.folder.Read(kFile), text);
  }
  EXPECT_EQ(Saved(window), defaults);
}

TEST(LastUsedSettingsTest, ADamagedLineIsNamedAndWhatStoodBeforeItHolds) {
  const struct {
    const char* name;
    std::string text;
    int line;
  } kRows[] = {
      {"open mode above its range", WithLine(4, "3"), 4},
      {"a flag that is neither", WithLine(5, "2"), 5},
      {"knob is a word", WithLine(10, "left"), 10},
      {"value is empty", WithLine(35, ""), 35},
      {"number beyond 16 bits", WithLine(67, "40000"), 67},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    TestWindow window;
    const std::string defaults = Saved(window);
    const Status loaded = Load(window, row.text);
    EXPECT_EQ(loaded.failure, Failure::kDamaged);
    EXPECT_TRUE(loaded.message.starts_with(window.files->Display(window.app.settings_file) +
                                           ": line " + std::to_string(row.line) + ": "))
        << loaded.message;
    EXPECT_EQ(window.folder.Read(kFile), row.text) << "the file is not touched";
    const std::string now = Saved(window);
    for (int line = 1; line <= 62; ++line) {
      const std::string& from = line < row.line ? row.text : defaults;
      EXPECT_EQ(LineOf(now, line), LineOf(from, line)) << "line " << line;
    }
  }
}

TEST(LastUsedSettingsTest, EveryCutIsToldAndNothingBehindItChanges) {
  const std::vector<std::string> lines = Lines();
  for (int count = 1; count < kLines; ++count) {
    TestWindow window;
    const Status loaded = Load(window, TextOf({lines.begin(), lines.begin() + count}));
    EXPECT_NE(loaded.message.find(": line " + std::to_string(count + 1) + ": "), std::string::npos)
        << count << ": " << loaded.message;
    EXPECT_EQ(window.modules.hue.marker_y, count >= 62 ? 80 : 53) << count;
    EXPECT_EQ(window.modules.picked_white.has_value(), count >= 60) << "half a colour is none";
  }
}

TEST(LastUsedSettingsTest, NumbersAreReadLenientlyAndKeptInRange) {
  const struct {
    int line;
    const char* written;
    const char* kept;
  } kRows[] = {
      {4, " 2 ", "2"},        {8, "+4", "4"},       {9, "99", "-1"},    {9, "-7", "-1"},
      {10, "183", "182"},     {10, "-1", "0"},      {10, "90.5", "90"}, {11, "101", "100"},
      {11, "-1", "0"},        {17, "-101", "-100"}, {31, "0", "1"},     {31, "11", "10"},
      {35, "-30000", "-180"}, {58, "256", "255"},   {59, "-1", "0"},    {61, "106", "105"},
      {62, "-3", "0"},        {66, "-5", "0"},
  };
  for (const auto& row : kRows) {
    TestWindow window;
    const Status loaded = Load(window, WithLine(row.line, row.written));
    EXPECT_TRUE(loaded.ok()) << loaded.message;
    EXPECT_EQ(LineOf(Saved(window), row.line), row.kept) << row.line << ": " << row.written;
  }
}

}  // namespace
}  // namespace tarnwell
