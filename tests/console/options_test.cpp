#include "console/options.h"

#include <gtest/gtest.h>
#include <sstream>

#include "console/panel_settings.h"
#include "console/setting_words.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

using Words = std::vector<std::string>;

TEST(OptionsTest, SettingsMayStandAnywhereAndBeRepeated) {
  std::istringstream text(
      "--module 3=on a.jpg --slider=3=-20 --slider 4=7 b.jpg --module 7=off --check 2=0 --rotation "
      "4 "
      "--hue 60,40 --analyze full --extended-noise --no-learn --camera Phone --threads 3 --quiet "
      "--preview --record --output-folder out --program-folder p -- -c.jpg");
  Words words;
  for (std::string word; text >> word;) words.push_back(word);
  const auto parsed = ParseCorrectWords(words);
  ASSERT_TRUE(parsed.options) << parsed.err;
  const CorrectOptions& options = *parsed.options;
  EXPECT_EQ(options.photos, (Words{"a.jpg", "b.jpg", "-c.jpg"}));
  EXPECT_EQ(options.settings.modules, (std::vector<ModuleSetting>{{3, true}, {7, false}}));
  EXPECT_EQ(options.settings.sliders, (std::vector<SliderSetting>{{3, -20}, {4, 7}}));
  EXPECT_EQ(options.settings.checks, (std::vector<CheckSetting>{{2, false}}));
  EXPECT_EQ(options.settings.rotation, 4);
  EXPECT_EQ(options.settings.hue, (HueMarker{60, 40}));
  EXPECT_TRUE(options.settings.analyze_full);
  EXPECT_TRUE(options.settings.extended_noise);
  EXPECT_EQ(options.settings.learn, false);
  EXPECT_EQ(options.settings.camera, "Phone");
  EXPECT_EQ(options.settings.threads, 3);
  EXPECT_TRUE(options.settings.quiet);
  EXPECT_EQ(options.settings.program_folder, "p");
  EXPECT_TRUE(options.preview);
  EXPECT_TRUE(options.record);
  EXPECT_EQ(options.output_folder, "out");
}

TEST(OptionsTest, WrongWordsEndWithTheReasonAndTheUsage) {
  const struct {
    Words words;
    const char* reason;
  } rows[] = {
      {{}, "PHOTO"},
      {{"a.jpg", ""}, "a name is missing"},
      {{"a.jpg", "--output", ""}, "--output: a name is missing"},
      {{"a.jpg", "--output", "x.d/b.PNG"}, "b.PNG"},
      {{"a.jpg", "--output-folder=", "b"}, "--output-folder: its value is missing"},
      {{"a.jpg", "--output=", "--quiet"}, "--output: its value is missing"},
      {{"--camera", "--no-learn", "a.jpg"}, "--camera: its value is missing"},
      {{"a.jpg", "--slider", "3=1", "--slider"}, "--slider: its value is missing"},
      {{"a.jpg", "--learn=false"}, "--learn: takes no value"},
      {{"--hel"}, "not expected: --hel"},
      {{"-a.jpg"}, "not expected: -a.jpg; for a file of this name write ./-a.jpg"},
      {{"a.jpg", "--camera", ""}, "--camera: a name is missing"},
      {{"a.jpg", "--mode", ""}, "--mode: a name is missing"},
      {{"a.jpg", "--program-folder", ""}, "--program-folder: a name is missing"},
      {{"a.jpg", "--previews"}, "--previews"},
      {{"a.jpg", "--slider", "3=101"}, "from -100 to 100"},
      {{"a.jpg", "--slider", "4=1", "--slider", "13=1"}, "13=1"},
      {{"a.jpg", "--module", "3=yes"}, "3=yes"},
      {{"a.jpg", "--rotation", "5"}, "--rotation"},
      {{"a.jpg", "--rotation", "x"}, "--rotation"},
      {{"a.jpg", "--white", "1,2,256"}, "--white"},
      {{"a.jpg", "--white", "1,2,3", "--white-file", "w.wbs"}, "--white"},
      {{"a.jpg", "--analyze", "half"}, "--analyze"},
      {{"a.jpg", "--learn", "--no-learn"}, "--learn"},
      {{"a.jpg", "--threads", "0"}, "--threads"},
      {{"a.jpg", "--output", "b.jpg", "--output-folder", "out"}, "--output"},
      {{"a.jpg", "b.jpg", "--output", "c.jpg"}, "--output"},
  };
  for (const auto& row : rows) {
    const auto parsed = ParseCorrectWords(row.words);
    EXPECT_FALSE(parsed.options) << row.reason;
    EXPECT_EQ(parsed.exit_code, 2) << row.reason;
    EXPECT_EQ(parsed.out, "") << row.reason;
    EXPECT_NE(parsed.err.find(row.reason), std::string::npos) << parsed.err;
    EXPECT_NE(parsed.err.find("Usage: tarnwell-pocket correct PHOTO..."), std::string::npos)
        << row.reason;
  }
}

TEST(OptionsTest, WhereNothingIsLearntNothingOffersIt) {
  EXPECT_NE(ParseCorrectWords({"--help"}).out.find("--learn"), std::string::npos);
  EXPECT_EQ(ParseDirectoryWords({"--help"}).out.find("--learn"), std::string::npos);
  EXPECT_EQ(ParseWatchWords({"--help"}).out.find("--learn"), std::string::npos);
}

TEST(SettingWordsTest, ValuesAreTakenUpToBothEndsOfTheirRanges) {
  const struct {
    const char* word;
    SliderSetting setting;
  } rows[] = {{"0=0", {0, 0}},       {"6=100", {6, 100}},     {"3=-100", {3, -100}},
              {"3=+20", {3, 20}},    {"10=1", {10, 1}},       {"10=10", {10, 10}},
              {"12=180", {12, 180}}, {"12=-180", {12, -180}}, {"011=7", {11, 7}}};
  for (const auto& row : rows) {
    const Result<SliderSetting> parsed = ParseSliderSetting(row.word);
    ASSERT_TRUE(parsed.ok()) << row.word;
    EXPECT_EQ(*parsed, row.setting) << row.word;
  }
  EXPECT_EQ(*ParseModuleSetting("13=off"), (ModuleSetting{13, false}));
  EXPECT_EQ(*ParseCheckSetting("4=1"), (CheckSetting{4, true}));
  EXPECT_EQ(*ParseHueMarker("0,105"), (HueMarker{0, 105}));
  EXPECT_EQ(*ParseColour("255,0,1"), (Rgb{255, 0, 1}));
}

TEST(SettingWordsTest, EverythingElseIsRefused) {
  for (const char* word :
       {"", "3", "=5", "3=", "3=x", "3=5x", "3= 5", "3=5=5", "3=101", "3=-101", "3=+-5", "10=0",
        "10=11", "12=181", "13=0", "-1=0", "3=1.5", "3=99999999999", "3=0x10"}) {
    EXPECT_FALSE(ParseSliderSetting(word).ok()) << word;
  }
  for (const char* word : {"", "3", "3=", "3=ON", "3=1", "14=on", "-1=on", "on=3"}) {
    EXPECT_FALSE(ParseModuleSetting(word).ok()) << word;
  }
  for (const char* word : {"", "2", "2=", "2=2", "2=on", "5=1", "-1=0"}) {
    EXPECT_FALSE(ParseCheckSetting(word).ok()) << word;
  }
  for (const char* word : {"", "5", "5,", ",5", "106,0", "0,106", "-1,0", "1,2,3"}) {
    EXPECT_FALSE(ParseHueMarker(word).ok()) << word;
  }
  for (const char* word : {"", "1,2", "1,2,", "1,2,256", "-1,0,0", "1,2,3,4", "1,2,3,", "1;2;3"}) {
    EXPECT_FALSE(ParseColour(word).ok()) << word;
  }
}

constexpr char kHalfStrengthFile[] = "Red: 250\r\nGrn: 240\r\nBlu: 200\r\nSld: 36\r\n";

TEST(PanelSettingsTest, SingleSettingsComeLast) {
  TestWindow window;
  Settings settings;
  settings.white_file = window.folder.Write("w.wbs", kHalfStrengthFile);
  ASSERT_TRUE(ApplySettings(settings, window.platform, window.app, window.modules).ok());
  EXPECT_EQ(window.modules.white_balance_mode, WhiteBalanceMode::kCustomFile);
  EXPECT_EQ(window.modules.custom_white_file, settings.white_file);
  EXPECT_EQ(window.modules.sliders[2].text, "19") << "floor(36 / 1.81)";

  settings.sliders = {{2, 80}, {3, 5}, {3, -7}};
  settings.modules = {{2, true}, {10, false}};
  settings.checks = {{kLearnFromSavedPhotos, false}};
  ASSERT_TRUE(ApplySettings(settings, window.platform, window.app, window.modules).ok());
  EXPECT_EQ(window.modules.sliders[2].text, "80");
  EXPECT_EQ(window.modules.sliders[3].text, "-7") << "the last word counts";
  EXPECT_TRUE(window.modules.IsOpen(2));
  EXPECT_FALSE(window.modules.IsOpen(10));
  EXPECT_FALSE(window.modules.IsChecked(kLearnFromSavedPhotos));
}

TEST(PanelSettingsTest, TheModesWhiteBalanceComesBeforeTheChosenOne) {
  TestWindow window;
  window.folder.Write("program\\Cameras\\Phone\\Night\\White Balance.wbs", kHalfStrengthFile);
  Settings settings;
  settings.camera = "Phone";
  settings.mode = "Night";
  ASSERT_TRUE(ApplySettings(settings, window.platform, window.app, window.modules).ok());
  EXPECT_EQ(window.modules.white_balance_mode, WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(window.modules.sliders[2].text, "19");

  settings.white = Rgb{1, 2, 3};
  ASSERT_TRUE(ApplySettings(settings, window.platform, window.app, window.modules).ok());
  EXPECT_EQ(window.modules.white_balance_mode, WhiteBalanceMode::kPickedPixel);
  EXPECT_EQ(window.modules.picked_white, (Rgb{1, 2, 3}));
  EXPECT_EQ(window.modules.sliders[2].text, "19") << "a colour alone says nothing of the strength";
}

}  // namespace
}  // namespace tarnwell
