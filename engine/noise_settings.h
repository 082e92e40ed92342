#pragma once

namespace tarnwell {

// What one run's noise filter works with.
struct NoiseSettings {
  int radius = 1;                   // pixels, at least 1
  double threshold = 7.65;          // colour difference |dR| + |dG| + |dB|
  bool darkness_weighting = false;  // the threshold follows the pixel's darkness

  friend bool operator==(const NoiseSettings&, const NoiseSettings&) = default;
};

}  // namespace tarnwell
