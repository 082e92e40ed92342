#include "console/setting_words.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

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

}  // namespace
}  // namespace tarnwell
