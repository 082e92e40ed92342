#include "engine/analysis.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include "engine/rounding.h"
#include "engine/run_parameters.h"

namespace tarnwell {

ToneLimits LimitsOf(const RunParameters& run, const PictureHistogram& histogram) {
  ToneLimits limits;
  limits.white_point = run.white_point ? *run.white_point : AutomaticWhitePoint(histogram);
  limits.black_point = run.black_point;
  if (limits.white_point <= 1) limits.white_point = 2;
  if (limits.black_point >= limits.white_point) limits.black_point = limits.white_point - 2;
  if (limits.black_point + 2 > limits.white_point) limits.white_point = limits.black_point + 1;
  return limits;
}

AnalysisPass::AnalysisPass(const PixelView& pixels, const BrightnessHistogram& histogram,
                           const ToneLimits& limits, int top_level)
    : pixels_(pixels),
      lowest_sum_(static_cast<int>(std::ceil(std::clamp(limits.black_point, 0.0, 766.0)))),
      highest_sum_(static_cast<int>(std::floor(std::clamp(limits.white_point, -1.0, 765.0)))),
      has_saturation_(top_level != 0),
      entries_(static_cast<std::size_t>(pixels.height) * kColumns) {
  for (int sum = lowest_sum_; sum <= highest_sum_; ++sum) {
    brightness_[sum] = sum / 765.0;
    if (histogram[sum] == 0) continue;
    if (found_.count == 0) found_.lowest_sum = sum;
    found_.highest_sum = sum;
    found_.count += histogram[sum];
  }
  // The entries for what is not measured stay 0, whose addition changes nothing.
  for (int colour = 0; colour < kBlack; ++colour) {
    DivideInto(saturation_[colour], colour, top_level);
  }
  // A black pixel counts as a trace of colour here, and only here.
  DivideInto(saturation_[kBlack], 0.001, top_level);
}

namespace {

// Four pixels of 32 bits, or their bytes.
typedef std::uint32_t Pixels __attribute__((vector_size(16)));
typedef std::int32_t Numbers __attribute__((vector_size(16)));
typedef std::uint8_t Bytes __attribute__((vector_size(16)));

inline Bytes Larger(Bytes a, Bytes b) { return a > b ? a : b; }
inline Bytes Smaller(Bytes a, Bytes b) { return a < b ? a : b; }

// Where `mask` is all ones, `a`, where it is 0, `b`.
inline Pixels Choose(Numbers mask, Pixels a, Pixels b) {
  const auto bits = reinterpret_cast<Pixels>(mask);
  return (a & bits) | (b & ~bits);
}

std::uint8_t LowestOf(Pixels pixels, int lane) { return static_cast<std::uint8_t>(pixels[lane]); }

// `row` has fewer columns than are measured at once: they are filled up with the first of them.
template <int kCount>
const std::uint8_t* FilledUp(const std::uint8_t* row, int columns,
                             std::uint8_t (&full)[kCount * kBytesPerPixel]) {
  for (int x = 0; x < kCount; ++x) {
    std::memcpy(full + x * kBytesPerPixel, row + (x < columns ? x : 0) * kBytesPerPixel,
                kBytesPerPixel);
  }
  return full;
}

}  // namespace

void AnalysisPass::FindEntries(int first_column, int columns) {
  static_assert(std::endian::native == std::endian::little);
  constexpr int kLanes = 4;
  const Numbers below = Numbers{} + (lowest_sum_ - 1), above = Numbers{} + (highest_sum_ + 1);
  // Only the lowest byte of a lane, that of the extreme channel, is looked at in the end.
  Bytes highest_max = {}, lowest_min = ~Bytes{};
  Entries* entries = entries_.data();
  std::uint8_t full_row[kColumns * kBytesPerPixel];
  for (int y = 0; y < pixels_.height; ++y, entries += kColumns) {
    const std::uint8_t* row = pixels_.at(first_column, y);
    if (columns < kColumns) row = FilledUp<kColumns>(row, columns, full_row);
    for (int x = 0; x < kColumns; x += kLanes) {
      Pixels pixels;
      std::memcpy(&pixels, row + x * kBytesPerPixel, sizeof(pixels));
      const Pixels from_green = pixels >> 8, from_red = pixels >> 16;
      const auto bytes = reinterpret_cast<Bytes>(pixels);
      const auto green = reinterpret_cast<Bytes>(from_green);
      const auto red = reinterpret_cast<Bytes>(from_red);
      const Bytes highest = Larger(Larger(bytes, green), red);
      const Bytes lowest = Smaller(Smaller(bytes, green), red);

      const Pixels sum = (pixels & 255) + (from_green & 255) + (from_red & 255);
      const auto number = reinterpret_cast<Numbers>(sum);
      const Numbers measured = (number > below) & (number < above);
      const Numbers black = (reinterpret_cast<Pixels>(highest) & 255) == 0;
      const Pixels colour = (reinterpret_cast<Pixels>(highest - lowest) & 255) |
                            (reinterpret_cast<Pixels>(black) & kBlack);
      const Pixels entry =
          Choose(measured, sum | colour << 16, Pixels{} + (kNotMeasured | kNoSaturation << 16));
      std::memcpy(entries + x, &entry, sizeof(entry));

      const auto counts = reinterpret_cast<Bytes>(measured);
      highest_max = Larger(highest_max, highest & counts);
      lowest_min = Smaller(lowest_min, lowest | ~counts);
    }
  }
  for (int lane = 0; lane < kLanes; ++lane) {
    const int highest = LowestOf(reinterpret_cast<Pixels>(highest_max), lane);
    const int lowest = LowestOf(reinterpret_cast<Pixels>(lowest_min), lane);
    found_.highest_max_channel = std::max(found_.highest_max_channel, highest);
    found_.lowest_min_channel = std::min(found_.lowest_min_channel, lowest);
  }
}

void AnalysisPass::Measure(int part) {
  const int first_column = part * kColumns;
  const int columns = std::min(kColumns, pixels_.width - first_column);
  FindEntries(first_column, columns);
  double brightness = found_.brightness_total, saturation = found_.saturation_total;
  for (int x = 0; x < columns; ++x) {
    const Entries* entries = entries_.data() + x;
    for (int y = 0; y < pixels_.height; ++y, entries += kColumns) {
      brightness += brightness_[entries->sum];
      saturation += saturation_[entries->colour];
      colour_seen_[entries->colour] = true;
    }
  }
  found_.brightness_total = brightness;
  found_.saturation_total = saturation;
}

Measurements AnalysisPass::found() const {
  Measurements found = found_;
  if (!has_saturation_) return found;
  for (int colour = 0; colour < kNoSaturation; ++colour) {
    if (!colour_seen_[colour]) continue;
    found.lowest_saturation = std::min(found.lowest_saturation, saturation_[colour]);
    found.highest_saturation = std::max(found.highest_saturation, saturation_[colour]);
  }
  return found;
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
