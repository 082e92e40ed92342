#include "console/options.h"

#include <gtest/gtest.h>
#include <sstream>

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
      {{"a.jpg", "--output-folder="}, "--output-folder"},
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

}  // namespace
}  // namespace tarnwell
