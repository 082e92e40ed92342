#include <gtest/gtest.h>
#include <limits>

#include "engine/pixel_adjustments.h"
#include "engine/rounding.h"
#include "engine/tone_vectors.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

TEST(RoundIntoTest, RoundsHalfToEvenWithinSixteenBits) {
  struct Case {
    double value;
    bool fits;
    int rounded;
  };
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
  const Case cases[] = {{0.5, true, 0},
                        {1.5, true, 2},
                        {-1.5, true, -2},
                        {2.4999999999999996, true, 2},
                        {2.5000000000000004, true, 3},
                        {32767.499999999996, true, 32767},
                        {32767.5, false, 0},
                        {-32768.5, true, -32768},
                        {-32768.500000000004, false, 0},
                        {-1e300, false, 0},
                        {kInfinity, false, 0},
                        {kNoNumber, false, 0}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.value);
    std::int16_t target = 77;
    EXPECT_EQ(RoundInto(target, c.value), c.fits);
    EXPECT_EQ(target, c.fits ? c.rounded : 77);
  }
}

// Both fast forms, table and vectors.
TEST(AdjustPieceTest, GivesWhatTheStepsGiveInEveryForm) {
  AdjustmentSettings tinted;
  tinted.black_level = 7;
  tinted.gain = 1.37;
  tinted.hue_factors = {0.3f, -0.1f, 0.05f};
  tinted.white_balance_offsets = {-0.2, 0.1, 0.15};
  tinted.saturation_multiplier = 1.8;
  tinted.contrast_factor = -0.35;
  AdjustmentSettings plain;
  plain.gain = 1.5;
  AdjustmentSettings ordinary;
  ordinary.black_level = 8;
  ordinary.gain = 1.21;
  ordinary.saturation_multiplier = 2.5;  // ties
  AdjustmentSettings steep = ordinary;
  steep.black_level = -3;
  steep.gain = -5.5;
  steep.saturation_multiplier = 7.77;
  steep.contrast_factor = -1.25;
  // Steps that leave 16 bits do not happen.
  AdjustmentSettings beyond = plain;
  beyond.gain = 400;
  beyond.saturation_multiplier = 300;
  beyond.contrast_factor = 700;
  const auto start = RandomPixels(61, 40, 1);
  for (const AdjustmentSettings& settings : {tinted, plain, beyond, ordinary, steep}) {
    const ToneTable table(settings);
    // The second time with channels that another filter has moved away from the starting sum.
    for (const auto& values : {start, RandomPixels(61, 40, 2)}) {
      PixelArray expected(61, 40), actual(61, 40);
      AdjustPiece(values->view(), start->view(), {0, 0, 61, 40}, settings, nullptr,
                  expected.mutable_view());
      AdjustPiece(values->view(), start->view(), {0, 0, 61, 40}, settings, &table,
                  actual.mutable_view());
      EXPECT_TRUE(actual == expected) << "gain " << settings.gain;
      if (!SuitToneVectors(settings)) continue;
      PixelArray in_vectors(61, 40);
      AdjustPieceInVectors(values->view(), start->view(), {0, 0, 61, 40}, settings,
                           in_vectors.mutable_view());
      EXPECT_TRUE(in_vectors == expected) << "vectors, gain " << settings.gain;
    }
  }
}

TEST(ToneVectorsTest, AreForRunsWhoseChannelsStayWithinSixteenBits) {
  AdjustmentSettings settings;
  EXPECT_FALSE(SuitToneVectors(settings, Instructions::kPlain));
  EXPECT_TRUE(SuitToneVectors(settings, Instructions::kAvx2));
  settings.gain = 120;
  EXPECT_TRUE(SuitToneVectors(settings, Instructions::kAvx2));
  settings.gain = -129;
  EXPECT_FALSE(SuitToneVectors(settings, Instructions::kAvx2));
  settings.gain = 100;
  settings.contrast_factor = 0.3;
  EXPECT_FALSE(SuitToneVectors(settings, Instructions::kAvx2));
}

}  // namespace
}  // namespace tarnwell
