#pragma once

#include <cstdint>
#include <string_view>

namespace tarnwell {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Colour&) const = default;
};

// 0xRRGGBB, as colours are written down.
constexpr Colour Hex(std::uint32_t rgb) {
  return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
          static_cast<std::uint8_t>(rgb)};
}

// `over` laid on `under` with `opacity` 0 to 1.
Colour Mix(Colour under, Colour over, double opacity);

// The colours of the windows, by what they are for.
struct Theme {
  bool dark = false;
  Colour page;            // behind everything
  Colour card;            // modules, fields, menus
  Colour border;          // of cards and buttons
  Colour text;            // what is read
  Colour quiet;           // captions, values in the second row; still 4.5 to 1
  Colour disabled;        // what cannot be used now
  Colour accent;          // the one colour that says: this acts, this is on
  Colour on_accent;       // text on it
  Colour hover;           // ground of a flat thing under the pointer
  Colour pressed;         // and while it is held
  Colour track;           // of sliders and progress
  Colour control_border;  // outline of checks and fields; 3 to 1 against the card
};

extern const Theme kLightTheme;
extern const Theme kDarkTheme;

// The theme to show: `forced` ("light" or "dark"; anything else forces nothing) before the system's
// setting.
const Theme& ChooseTheme(std::string_view forced, bool system_is_dark);

// The contrast of two colours as readers see it: 1 (the same) to 21 (black on white), by relative
// luminance.
double Contrast(Colour a, Colour b);

}  // namespace tarnwell
