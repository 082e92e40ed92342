#include "engine/run_parameters.h"

#include <algorithm>

#include "engine/rounding.h"
#include "modules/frm_modules.h"

namespace tarnwell {
namespace {

// One percent of the 765 brightness levels.
constexpr double kLevelsPerPercent = 7.65;

double Percent(const frmModules& panel, int module, int slider) {
  if (!panel.IsOpen(module)) return 0;
  return panel.Value(slider).value_or(0) / 100.0;
}

NoiseSettings CollectNoise(const frmModules& panel, bool preview, double scale_ratio,
                           bool extended) {
  std::int16_t radius = static_cast<std::int16_t>(panel.Value(kNoiseRadiusSlider).value_or(1));
  // Unless the highest quality is asked for, an eighth of the radius has to do: the cost grows with
  // its square.
  if (!extended) RoundInto(radius, radius / 8.0);
  if (!preview) RoundInto(radius, radius * scale_ratio);
  radius = std::max<std::int16_t>(radius, 1);

  double threshold = panel.Value(kNoiseThresholdSlider).value_or(0);
  if (!extended) {
    double divisor = static_cast<double>(radius) * radius * 0.02 + 0.98;
    divisor = std::max(divisor, 0.1);
    threshold = threshold / divisor;
  }
  threshold = std::max(threshold, 1.0) * kLevelsPerPercent;
  return {radius, threshold, panel.IsChecked(kProtectLightAreas)};
}

FocusSettings CollectFocus(const frmModules& panel, bool preview, double scale_ratio) {
  double distance = panel.Value(kFocusDistanceSlider).value_or(0);
  double step = 1;
  if (preview) {
    distance = distance / scale_ratio;
    step = 1 / scale_ratio;
  }
  const auto at_least_one = [](double value) {
    return std::max(static_cast<int>(RoundHalfToEven(value)), 1);
  };
  return {panel.Value(kFocusAmountSlider).value_or(0) / 50.0, at_least_one(distance),
          at_least_one(step)};
}

}  // namespace

std::array<double, 3> WhiteBalanceOffsets(const Rgb& reference, int strength) {
  const double sum = reference.red + reference.green + reference.blue;
  const double channels[3] = {static_cast<double>(reference.red),
                              static_cast<double>(reference.green),
                              static_cast<double>(reference.blue)};
  std::array<double, 3> offsets = {0, 0, 0};
  for (int i = 0; i < 3; ++i) {
    double share;
    if (!DivideInto(share, channels[i], sum)) continue;
    offsets[i] = 2 * (1.0 / 3.0 - share);
    offsets[i] = offsets[i] * (strength / 100.0);
  }
  return offsets;
}

RunParameters CollectParameters(const frmModules& panel, bool preview, double scale_ratio,
                                bool extended_noise) {
  RunParameters run;
  run.measure = panel.IsOpen(kSmartPhotoCorrection);
  run.use_learnt = run.measure && panel.IsChecked(kUseLearntCorrections);
  run.brightness_factor = Percent(panel, kAdjustBrightness, kBrightnessSlider);
  // 0 - x and not -x: a closed module gives 0 and not minus 0, which would show in the record.
  run.contrast_factor = 0 - Percent(panel, kAdjustContrast, kContrastSlider);
  run.saturation_factor = Percent(panel, kAdjustSaturation, kSaturationSlider);

  if (panel.IsChecked(kWhiteLimitByHand)) {
    if (const auto value = panel.Value(kWhiteLimitSlider))
      run.white_point = (100 - *value) * kLevelsPerPercent;
  }
  if (panel.IsChecked(kBlackLimitByHand)) {
    if (const auto value = panel.Value(kBlackLimitSlider))
      run.black_point = *value * kLevelsPerPercent;
  }

  if (panel.IsOpen(kAdjustHue)) run.hue_factors = panel.hue.factors;
  if (panel.IsOpen(kNoiseReduction)) {
    run.noise = CollectNoise(panel, preview, scale_ratio, extended_noise);
  }
  if (panel.IsOpen(kAdjustFocus)) run.focus = CollectFocus(panel, preview, scale_ratio);
  if (panel.IsOpen(kRotation)) run.rotation = panel.rotation;
  if (panel.IsOpen(kColorRotation)) run.hue_degrees = panel.Value(kColorRotationSlider).value_or(0);
  return run;
}

}  // namespace tarnwell
