#include "engine/learning_data.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

LearningRecord Photo() {
  return {612, 30, 229.5, 7, 0.5, 0.1, 0.4, 0.2, 700, 0, 1.25, 0.9, 0.1, -0.2, 0.3};
}

TEST(LearningRecordTest, LevelsArePlainAndTheRestHasFourDecimals) {
  LearningRecord record = Photo();
  record[kWhitePoint] = 7.65;
  record[kHighestSumSeen] = 0.001;
  record[kWhiteBalanceRed] = -0.12345;
  record[kHueRed + 2] = 0.5f;
  EXPECT_EQ(FormatLearningRecord(record),
            "0.001\t30\t229.5\t7\t0.5000\t0.1000\t0.4000\t0.2000\t7.65\t0\t1.2500\t0.9000\t0.1000\t"
            "-0.2000\t0.3000\t-0.1235\t0.0000\t0.0000\t0.0000\t0.0000\t0.5000");
}

StoredRecord Stored(const LearningRecord& record) {
  return ParseLearningRecord(FormatLearningRecord(record));
}

TEST(LearntOffsetTest, WeighsRecordsByTheirLikeness) {
  const LearningRecord photo = Photo();
  EXPECT_EQ(LearntOffset({}, photo, kBrightnessSetting), 0);

  LearningData data;
  data.records.push_back(Stored(photo));
  EXPECT_NEAR(LearntOffset(data, photo, kBrightnessSetting), 0.1, 1e-7);
  EXPECT_NEAR(LearntOffset(data, photo, kSaturationSetting), -0.2, 1e-7);
  EXPECT_NEAR(LearntOffset(data, photo, kContrastSetting), 0.3, 1e-7);

  // Half as alike: off by 0.5 in one of ten columns, 5 % on average.
  LearningRecord other = photo;
  other[kMeanBrightness] = 0.9;
  other[kBrightnessSetting] = 0.7;
  data.records.push_back(Stored(other));
  EXPECT_NEAR(LearntOffset(data, photo, kBrightnessSetting), (0.1 + 0.5 * 0.7) / 1.5, 1e-6);

  // Off by more than 10 % on average: ignored.
  other[kMeanSaturation] = 0.9;
  data.records[1] = Stored(other);
  EXPECT_NEAR(LearntOffset(data, photo, kBrightnessSetting), 0.1, 1e-7);
}

TEST(LearntOffsetTest, AStoredLevelAboveItsRangeIsNotCompared) {
  LearningRecord record = Photo();
  record[kWhitePoint] = 800;
  const LearningData data = {{Stored(record)}};
  EXPECT_NEAR(LearntOffset(data, Photo(), kBrightnessSetting), 0.1, 1e-7);
}

TEST(LearntOffsetTest, RecordsThatCannotBeReadAreLeftOut) {
  const std::string good = FormatLearningRecord(Photo());
  const std::string second_field_bad = "612\tx" + good.substr(good.find('\t') + 3);
  LearningRecord unlike_anything = Photo();
  for (int column = 0; column < 10; ++column) unlike_anything[column] = 9999;
  for (const std::string& line :
       {std::string(), std::string("1\t2\t3"), good + "\t0.0000", second_field_bad,
        good.substr(0, good.rfind('\t')), FormatLearningRecord(unlike_anything)}) {
    const LearningData data = {{ParseLearningRecord(line)}};
    EXPECT_EQ(LearntOffset(data, Photo(), kBrightnessSetting), 0) << line;
  }
}

}  // namespace
}  // namespace tarnwell
