#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "engine/histogram.h"
#include "engine/learning_data.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

struct RunParameters;

// The automatic correction aims at these. The first two are single precision by definition, so
// their doubles differ from the decimal numbers.
inline constexpr double kTargetMeanBrightness = 0.55f;
inline constexpr double kTargetMeanSaturation = 0.16f;
inline constexpr double kSaturationCeiling = 0.76;

// Only pixels whose sum R + G + B lies between the limits are measured. Levels 0 to 765, real.
struct ToneLimits {
  double white_point = kTopSum;
  double black_point = 0;
  static constexpr double kTopSum = 765;
};

// The limits of a run over a picture: those set by hand, otherwise the automatic white point, and
// black point 0. They leave something to measure: a white point of at least 2, and the black point
// below.
ToneLimits LimitsOf(const RunParameters& run, const PictureHistogram& histogram);

// What one pass over the pixels finds.
struct Measurements {
  double highest_sum = 0;
  double lowest_sum = 765;
  int highest_max_channel = 0;
  int lowest_min_channel = 255;
  double highest_saturation = 0;
  double lowest_saturation = 255;
  double brightness_total = 0;
  double saturation_total = 0;
  std::uint64_t count = 0;
};

// Measures a picture, in parts of some columns.
//
// The totals are sums of doubles column by column, and depend on that order to the last bit. So one
// chain of additions goes through the pixels as they come; what is added is looked up, and which
// entry it is, is found for many pixels at a time before.
class AnalysisPass {
 public:
  // `histogram` is that of `pixels`, which outlive the pass. `top_level` 0 to 255 is the
  // saturation's divisor; at 0 no pixel has a saturation. Throws std::bad_alloc.
  AnalysisPass(const PixelView& pixels, const BrightnessHistogram& histogram,
               const ToneLimits& limits, int top_level);

  int part_count() const { return (pixels_.width + kColumns - 1) / kColumns; }

  // Parts must come in order, 0 first.
  void Measure(int part);

  // Of the parts that were measured; the count and the extreme sums are always the picture's.
  Measurements found() const;

 private:
  // A row of a part is a cache line.
  static constexpr int kColumns = 16;
  // What is added to the two totals for a pixel: entries of the tables.
  static constexpr int kNotMeasured = 766;   // as a sum
  static constexpr int kBlack = 256;         // as a colour, which is the range of the channels
  static constexpr int kNoSaturation = 257;  // as a colour
  struct Entries {
    std::uint16_t sum;
    std::uint16_t colour;
  };

  // Also takes in the extreme channels.
  void FindEntries(int first_column, int columns);

  PixelView pixels_;
  int lowest_sum_;  // that is measured
  int highest_sum_;
  bool has_saturation_;
  std::array<double, 767> brightness_ = {};
  std::array<double, 258> saturation_ = {};
  std::array<bool, 258> colour_seen_ = {};
  std::vector<Entries> entries_;  // row by row
  Measurements found_;
};

// The automatic correction that follows from the measurements.
struct AutomaticCorrection {
  std::int16_t black_level = 0;  // subtracted from each channel
  double gain = 1;
  double saturation_multiplier = 1;
};

// Derives the correction and fills columns 0 to 11 of `record`. `limits` are the checked ones.
AutomaticCorrection DeriveCorrection(const Measurements& found, const ToneLimits& limits,
                                     LearningRecord& record);

}  // namespace tarnwell
