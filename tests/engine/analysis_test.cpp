#include "engine/analysis.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

#include "engine/run_parameters.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

Measurements MeasureAll(const PixelView& pixels, const ToneLimits& limits, int top_level) {
  AnalysisPass pass(pixels, CountBrightness(pixels), limits, top_level);
  for (int part = 0; part < pass.part_count(); ++part) pass.Measure(part);
  return pass.found();
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

// The lines of the histogram in the window are these too.
TEST(ToneLimitsTest, ByHandOrFromThePictureAndNeverNothingBetween) {
  auto picture = std::make_shared<PixelArray>(10, 20);  // 200 pixels: 2 may be lighter
  for (int y = 0; y < 17; ++y) SetPixel(picture->mutable_view(), 0, y, {100, 100, 100});
  for (int y = 17; y < 20; ++y) SetPixel(picture->mutable_view(), 0, y, {200, 250, 200});
  SetPixel(picture->mutable_view(), 1, 0, {255, 255, 255});
  SetPixel(picture->mutable_view(), 1, 1, {255, 255, 254});
  const struct {
    std::optional<double> white_by_hand;
    double black_by_hand;
    double white;
    double black;
  } rows[] = {{{}, 0, 650, 0},     {{}, 76.5, 650, 76.5}, {535.5, 0, 535.5, 0},   {0, 0, 2, 0},
              {{}, 650, 650, 648}, {100, 99, 100, 99},    {76.5, 765, 76.5, 74.5}};
  for (const auto& row : rows) {
    RunParameters run;
    run.white_point = row.white_by_hand;
    run.black_point = row.black_by_hand;
    const ToneLimits limits = LimitsOf(run, PictureHistogram(picture));
    EXPECT_EQ(limits.white_point, row.white) << row.black_by_hand;
    EXPECT_EQ(limits.black_point, row.black) << row.black_by_hand;
  }
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

}  // namespace
}  // namespace tarnwell
