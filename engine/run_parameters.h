#pragma once

#include <array>
#include <optional>

#include "engine/focus_filter.h"
#include "engine/noise_settings.h"

namespace tarnwell {

struct frmModules;
struct Rgb;

// The white balance of a run: per channel (red, green, blue) how much of the channel is added.
// From the colour of something that ought to be white, at `strength` percent:
//   offset = 2 x (1/3 - channel / (R + G + B)) x strength / 100
// A black reference says nothing and gives offsets of 0.
std::array<double, 3> WhiteBalanceOffsets(const Rgb& reference, int strength);

// What the panel asks of one run, apart from the white balance, whose source may be a file.
struct RunParameters {
  bool measure = false;               // "Smart Photo Correction" is on
  bool use_learnt = false;            // learnt corrections are applied
  double brightness_factor = 0;       // -1 to 1
  double contrast_factor = 0;         // -1 to 1; minus the slider's direction
  double saturation_factor = 0;       // -1 to 1
  std::optional<double> white_point;  // by hand; otherwise from the histogram
  double black_point = 0;
  std::optional<std::array<float, 3>> hue_factors;
  std::optional<NoiseSettings> noise;
  std::optional<FocusSettings> focus;
  std::optional<int> rotation;
  int hue_degrees = 0;  // colour rotation; 0 is none

  friend bool operator==(const RunParameters&, const RunParameters&) = default;
};

// Reads the panel. `scale_ratio` is the photo's width divided by the thumbnail's: the noise radius
// is set against the thumbnail and grows with it on full runs, the focus distance is set against
// the photo and shrinks on previews. A value that is no number leaves its parameter as it is.
RunParameters CollectParameters(const frmModules& panel, bool preview, double scale_ratio,
                                bool extended_noise);

}  // namespace tarnwell
