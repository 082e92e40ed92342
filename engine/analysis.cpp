#include "engine/analysis.h"

#include <algorithm>

#include "engine/rounding.h"

namespace tarnwell {

ToneLimits CheckToneLimits(ToneLimits limits) {
  if (limits.white_point <= 1) limits.white_point = 2;
  if (limits.black_point >= limits.white_point) limits.black_point = limits.white_point - 2;
  if (limits.black_point + 2 > limits.white_point) limits.white_point = limits.black_point + 1;
  return limits;
}

void MeasureColumn(const PixelView& pixels, int x, const ToneLimits& limits, int top_level,
                   Measurements& found) {
  for (int y = 0; y < pixels.height; ++y) {
    const std::uint8_t* pixel = pixels.at(x, y);
    const int sum = pixel[kBlue] + pixel[kGreen] + pixel[kRed];
    if (sum > limits.white_point || sum < limits.black_point) continue;

    const int max_channel = std::max({pixel[kBlue], pixel[kGreen], pixel[kRed]});
    const int min_channel = std::min({pixel[kBlue], pixel[kGreen], pixel[kRed]});
    found.lowest_sum = std::min<double>(found.lowest_sum, sum);
    found.highest_sum = std::max<double>(found.highest_sum, sum);
    found.highest_max_channel = std::max(found.highest_max_channel, max_channel);
    found.lowest_min_channel = std::min(found.lowest_min_channel, min_channel);
    ++found.count;
    found.brightness_total += sum / 765.0;

    // A black pixel counts as a trace of colour here, and only here.
    const double colour = (max_channel == 0 ? 0.001 : max_channel) - min_channel;
    double saturation;
    if (!DivideInto(saturation, colour, top_level)) continue;
    found.saturation_total += saturation;
    found.lowest_saturation = std::min(found.lowest_saturation, saturation);
    found.highest_saturation = std::max(found.highest_saturation, saturation);
  }
}

namespace {

// The stretch that takes the darkest measured sum to 0 and the brightest to 765, or the one that
// takes the brightest channel to 250 if that is stronger; averaged with the gain that would bring
// the mean brightness to its target. Every undefined quotient is left out.
double ToneGain(double highest_sum, double lowest_sum, int highest_max_channel, int black_level,
                double mean_brightness) {
  double gain = 1;
  const bool has_sum_stretch = DivideInto(gain, 765.0, highest_sum - lowest_sum);
  double channel_stretch;
  if (DivideInto(channel_stretch, 250.0, highest_max_channel - black_level) &&
      (!has_sum_stretch || channel_stretch > gain)) {
    gain = channel_stretch;
  }
  double towards_target;
  if (DivideInto(towards_target, kTargetMeanBrightness, mean_brightness)) {
    gain = (gain + towards_target) / 2;
  }
  return gain;
}

double SaturationMultiplierFor(double highest_saturation, double mean_saturation, double gain) {
  double multiplier = 1;
  DivideInto(multiplier, kSaturationCeiling, highest_saturation);
  double towards_target;
  if (DivideInto(towards_target, kTargetMeanSaturation, mean_saturation)) {
    multiplier = (multiplier + towards_target) / 2;
  }
  // A strong brightening is given less added saturation.
  double damping;
  if (DivideInto(damping, 0.5, gain)) multiplier = multiplier * (damping + 0.5);
  return multiplier;
}

}  // namespace

AutomaticCorrection DeriveCorrection(const Measurements& found, const ToneLimits& limits,
                                     LearningRecord& record) {
  const double count = found.count == 0 ? 1.0 : static_cast<double>(found.count);
  const double mean_brightness = found.brightness_total / count;
  const double mean_saturation = found.saturation_total / count;

  double highest_sum = std::min(found.highest_sum, limits.white_point);
  if (highest_sum == 0) highest_sum = 0.001;

  AutomaticCorrection correction;
  correction.black_level = static_cast<std::int16_t>(found.lowest_min_channel);
  // A channel level against a sum level, deliberately without dividing the latter by 3.
  if (correction.black_level < limits.black_point) {
    RoundInto(correction.black_level, limits.black_point);
  }
  correction.gain = ToneGain(highest_sum, found.lowest_sum, found.highest_max_channel,
                             correction.black_level, mean_brightness);
  correction.saturation_multiplier =
      SaturationMultiplierFor(found.highest_saturation, mean_saturation, correction.gain);

  record[kHighestSumSeen] = highest_sum;
  record[kLowestSumSeen] = found.lowest_sum;
  record[kHighestMaxChannel] = found.highest_max_channel;
  record[kBlackLevel] = correction.black_level;
  record[kHighestSaturation] = found.highest_saturation;
  record[kLowestSaturation] = found.lowest_saturation;
  record[kMeanBrightness] = mean_brightness;
  record[kMeanSaturation] = mean_saturation;
  record[kWhitePoint] = limits.white_point;
  record[kBlackPoint] = limits.black_point;
  record[kToneGain] = correction.gain;
  record[kSaturationMultiplier] = correction.saturation_multiplier;
  return correction;
}

}  // namespace tarnwell
