#include "ui/look/theme.h"

#include <algorithm>
#include <cmath>

namespace tarnwell {

const Theme kLightTheme = {
    .dark = false,
    .page = Hex(0xF3F5F6),
    .card = Hex(0xFFFFFF),
    .border = Hex(0xDFE3E6),
    .text = Hex(0x1A1F23),
    .quiet = Hex(0x57616A),
    .disabled = Hex(0xA3ABB2),
    .accent = Hex(0x0B7285),
    .on_accent = Hex(0xFFFFFF),
    .hover = Hex(0xE7EBED),
    .pressed = Hex(0xD8DEE2),
    .track = Hex(0xD3D9DD),
    .control_border = Hex(0x7D8790),
};

const Theme kDarkTheme = {
    .dark = true,
    .page = Hex(0x1B1E21),
    .card = Hex(0x25292D),
    .border = Hex(0x363C41),
    .text = Hex(0xF0F2F4),
    .quiet = Hex(0xA9B2BA),
    .disabled = Hex(0x68717A),
    .accent = Hex(0x55C2D6),
    .on_accent = Hex(0x06262C),
    .hover = Hex(0x31373C),
    .pressed = Hex(0x3C4349),
    .track = Hex(0x454D54),
    .control_border = Hex(0x87919A),
};

namespace {

double Luminance(Colour colour) {
  const auto linear = [](std::uint8_t channel) {
    const double c = channel / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

}  // namespace

Colour Mix(Colour under, Colour over, double opacity) {
  const auto mixed = [opacity](std::uint8_t below, std::uint8_t above) {
    return static_cast<std::uint8_t>(std::lround(below + (above - below) * opacity));
  };
  return {mixed(under.red, over.red), mixed(under.green, over.green), mixed(under.blue, over.blue)};
}

const Theme& ChooseTheme(std::string_view forced, bool system_is_dark) {
  if (forced == "light") return kLightTheme;
  if (forced == "dark") return kDarkTheme;
  return system_is_dark ? kDarkTheme : kLightTheme;
}

double Contrast(Colour a, Colour b) {
  const double first = Luminance(a) + 0.05;
  const double second = Luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

}  // namespace tarnwell
