#pragma once

#include <string_view>

namespace tarnwell {

// Sizes in the windows' code are those of a 96-dpi screen; everything sits on a grid of 8 (halves
// where things are tight). A scale turns them into pixels.
inline constexpr int kGrid = 8;

struct Scale {
  int dpi = 96;

  // `size` on this screen, rounded to the nearest pixel (halves away from zero).
  int Px(int size) const;
  double Exact(double size) const { return size * dpi / 96; }

  bool operator==(const Scale&) const = default;
};

// The scale for a percentage as text, "100" to "400"; `otherwise` for any other text. Lets tests
// and screenshots show the windows as on a screen that is not there.
Scale ForcedScale(std::string_view percent, Scale otherwise);

}  // namespace tarnwell
