#include "engine/analysis.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

TEST(ToneLimitsTest, AlwaysLeaveSomethingToMeasure) {
  struct Case {
    const char* name;
    double white, black;
    double checked_white, checked_black;
  };
  const Case cases[] = {
      {"ordinary", 700, 20, 700, 20},
      {"no white found", -1, 0, 2, 0},
      {"white of 1", 1, 0, 2, 0},
      {"white just above 1", 1.5, 0, 1, 0},
      {"black above white", 300, 400, 300, 298},
      {"black at white", 300, 300, 300, 298},
      {"black one below white", 300, 299, 300, 299},
      {"black two below white", 300, 298, 300, 298},
      {"everything by hand to the end", 0, 765, 2, 0},
      {"real limits", 7.65, 7.0, 8.0, 7.0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    const ToneLimits checked = CheckToneLimits({c.white, c.black});
    EXPECT_EQ(checked.white_point, c.checked_white);
    EXPECT_EQ(checked.black_point, c.checked_black);
  }
}

Measurements MeasureAll(const PixelView& pixels, const ToneLimits& limits, int top_level) {
  AnalysisPass pass(pixels, CountBrightness(pixels), limits, top_level);
  for (int part = 0; part < pass.part_count(); ++part) pass.Measure(part);
  return pass.found();
}

TEST(AnalysisPassTest, MeasuresOnlyPixelsWithinTheLimits) {
  const auto picture = PictureOf(2, {{200, 100, 50}, {255, 255, 255}, {10, 20, 30}, {1, 0, 0}});
  const Measurements found = MeasureAll(picture->view(), {350, 60}, 255);
  EXPECT_EQ(found.count, 2u);
  EXPECT_EQ(found.highest_sum, 350);
  EXPECT_EQ(found.lowest_sum, 60);
  EXPECT_EQ(found.highest_max_channel, 200);
  EXPECT_EQ(found.lowest_min_channel, 10);
  EXPECT_DOUBLE_EQ(found.highest_saturation, 150 / 255.0);
  EXPECT_DOUBLE_EQ(found.lowest_saturation, 20 / 255.0);
  EXPECT_DOUBLE_EQ(found.brightness_total, 410 / 765.0);
  EXPECT_DOUBLE_EQ(found.saturation_total, 170 / 255.0);
}

TEST(AnalysisPassTest, ABlackPixelHasATraceOfSaturationAndNothingElse) {
  const auto black = PictureOf(1, {{0, 0, 0}});
  Measurements found = MeasureAll(black->view(), {765, 0}, 100);
  EXPECT_DOUBLE_EQ(found.highest_saturation, 0.00001);
  EXPECT_EQ(found.highest_max_channel, 0);
  // Without a top level there is no saturation at all.
  found = MeasureAll(black->view(), {765, 0}, 0);
  EXPECT_EQ(found.count, 1u);
  EXPECT_EQ(found.highest_saturation, 0);
  EXPECT_EQ(found.lowest_saturation, 255);
}

// The rule, pixel by pixel.
Measurements MeasuredPlainly(const PixelView& pixels, const ToneLimits& limits, int top_level) {
  Measurements found;
  for (int x = 0; x < pixels.width; ++x) {
    for (int y = 0; y < pixels.height; ++y) {
      const TestPixel pixel = PixelAt(pixels, x, y);
      const int sum = pixel.red + pixel.green + pixel.blue;
      if (sum > limits.white_point || sum < limits.black_point) continue;
      const int highest = std::max({pixel.red, pixel.green, pixel.blue});
      const int lowest = std::min({pixel.red, pixel.green, pixel.blue});
      const double saturation = ((highest == 0 ? 0.001 : highest) - lowest) / top_level;
      found.lowest_sum = std::min<double>(found.lowest_sum, sum);
      found.highest_sum = std::max<double>(found.highest_sum, sum);
      found.highest_max_channel = std::max(found.highest_max_channel, highest);
      found.lowest_min_channel = std::min(found.lowest_min_channel, lowest);
      ++found.count;
      found.brightness_total += sum / 765.0;
      found.saturation_total += saturation;
      found.lowest_saturation = std::min(found.lowest_saturation, saturation);
      found.highest_saturation = std::max(found.highest_saturation, saturation);
    }
  }
  return found;
}

TEST(AnalysisPassTest, AddsInTheOrderOfTheRuleToTheLastBit) {
  for (const int width : {1, 15, 16, 17, 77}) {
    auto picture = std::make_shared<PixelArray>(*RandomPixels(width, 53, width));
    SetPixel(picture->mutable_view(), 0, 7, {0, 0, 0});
    for (const ToneLimits limits :
         {ToneLimits{765, 0}, {700.5, 99.5}, {420, 420}, {766.6, 1}, {2, 0}, {8, 7.5}}) {
      SCOPED_TRACE(testing::Message() << width << " columns, white point " << limits.white_point);
      const Measurements expected = MeasuredPlainly(picture->view(), limits, 231);
      const Measurements found = MeasureAll(picture->view(), limits, 231);
      EXPECT_EQ(found.brightness_total, expected.brightness_total);
      EXPECT_EQ(found.saturation_total, expected.saturation_total);
      EXPECT_EQ(found.highest_saturation, expected.highest_saturation);
      EXPECT_EQ(found.lowest_saturation, expected.lowest_saturation);
      EXPECT_EQ(found.highest_max_channel, expected.highest_max_channel);
      EXPECT_EQ(found.lowest_min_channel, expected.lowest_min_channel);
      EXPECT_EQ(found.highest_sum, expected.highest_sum);
      EXPECT_EQ(found.lowest_sum, expected.lowest_sum);
      EXPECT_EQ(found.count, expected.count);
    }
  }
}

TEST(DeriveCorrectionTest, ByHand) {
  struct Case {
    const char* name;
    Measurements found;
    ToneLimits limits;
    int black_level;
    double gain;
    double multiplier;
  };
  const double brightness = 0.55f, saturation = 0.16f;
  const auto measured = [](double highest, double lowest, int max_channel, int min_channel,
                           double highest_saturation, double brightness_total,
                           double saturation_total, std::uint64_t count) {
    return Measurements{
        highest, lowest,           max_channel,      min_channel, highest_saturation,
        0,       brightness_total, saturation_total, count};
  };
  const double ordinary_gain = (765.0 / 450 + brightness / 0.25) / 2;
  const double both = (765.0 / 100 + brightness / 0.5) / 2;
  const Case cases[] = {
      {"ordinary",
       measured(500, 50, 180, 5, 0.5, 1, 0.4, 4),
       {700, 0},
       5,
       ordinary_gain,
       (0.76 / 0.5 + saturation / 0.1) / 2 * (0.5 / ordinary_gain + 0.5)},
      {"the brightest channel asks for more",
       measured(700, 0, 100, 0, 1, 2, 0.64, 4),
       {765, 0},
       0,
       (2.5 + brightness / 0.5) / 2,
       (0.76 + saturation / 0.16) / 2 * (0.5 / ((2.5 + brightness / 0.5) / 2) + 0.5)},
      {"uniform colour: the sums do not differ",
       measured(350, 350, 200, 50, 0.8, 1, 1.6, 2),
       {765, 0},
       50,
       (250.0 / 150 + brightness / 0.5) / 2,
       (0.76 / 0.8 + saturation / 0.8) / 2 * (0.5 / ((250.0 / 150 + brightness / 0.5) / 2) + 0.5)},
      {"uniform grey: no stretch at all",
       measured(384, 384, 128, 128, 0, 1, 0, 2),
       {765, 0},
       128,
       (1 + brightness / 0.5) / 2,
       0.5 / ((1 + brightness / 0.5) / 2) + 0.5},
      {"black photo: only the sum stretch",
       measured(0, 0, 0, 0, 0, 0, 0, 3),
       {2, 0},
       0,
       765 / 0.001,
       0.5 / (765 / 0.001) + 0.5},
      {"a sum level raises the black level, rounded",
       measured(400, 300, 140, 90, 0, 1, 0, 2),
       {765, 267.75},
       268,
       both,
       0.5 / both + 0.5},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    LearningRecord record = {};
    const AutomaticCorrection correction = DeriveCorrection(c.found, c.limits, record);
    EXPECT_EQ(correction.black_level, c.black_level);
    EXPECT_DOUBLE_EQ(correction.gain, c.gain);
    EXPECT_DOUBLE_EQ(correction.saturation_multiplier, c.multiplier);
    EXPECT_EQ(record[kBlackLevel], c.black_level);
    EXPECT_EQ(record[kToneGain], correction.gain);
    EXPECT_EQ(record[kSaturationMultiplier], correction.saturation_multiplier);
    EXPECT_EQ(record[kWhitePoint], c.limits.white_point);
  }
}

TEST(DeriveCorrectionTest, NothingMeasuredStillGivesNumbers) {
  LearningRecord record = {};
  const AutomaticCorrection correction = DeriveCorrection(Measurements{}, {2, 0}, record);
  EXPECT_EQ(correction.black_level, 255);
  // 250 / (0 - 255) is greater than 765 / (0.001 - 765).
  EXPECT_DOUBLE_EQ(correction.gain, -250.0 / 255);
  EXPECT_EQ(record[kHighestSumSeen], 0.001);
  EXPECT_EQ(record[kLowestSumSeen], 765);
  EXPECT_EQ(record[kMeanBrightness], 0);
}

}  // namespace
}  // namespace tarnwell
