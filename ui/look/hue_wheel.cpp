#include "ui/look/hue_wheel.h"

#include <algorithm>
#include <cmath>

#include "modules/frm_modules.h"

namespace tarnwell {
namespace {

constexpr double kGrey = 150;
constexpr double kStrength = 1.3;  // the picker's own tints are too faint to aim at

std::uint8_t Tinted(float factor) {
  return static_cast<std::uint8_t>(
      std::clamp(std::lround(kGrey * (1 + kStrength * factor)), 0L, 255L));
}

}  // namespace

Picture HueWheel(int side, Colour ground) {
  const auto wheel = TryMakePixels(side, side);
  if (!wheel) return nullptr;
  const double radius = side / 2.0;
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      HuePicker hue;
      MoveHueMarker(hue, x * kHueFieldSide / side, y * kHueFieldSide / side);
      const Colour tint = {Tinted(hue.factors[0]), Tinted(hue.factors[1]), Tinted(hue.factors[2])};
      const double distance = std::hypot(x + 0.5 - radius, y + 0.5 - radius) - radius + 1;
      const Colour shown = Mix(tint, ground, std::clamp(distance + 0.5, 0.0, 1.0));
      std::uint8_t* pixel = wheel->mutable_view().at(x, y);
      pixel[kRed] = shown.red;
      pixel[kGreen] = shown.green;
      pixel[kBlue] = shown.blue;
    }
  }
  return wheel;
}

Point MarkerInWheel(Point place, double side, double radius) {
  const double middle = side / 2, most = middle - radius;
  const double dx = place.x - middle, dy = place.y - middle;
  const double distance = std::hypot(dx, dy);
  if (distance <= most) return place;
  return {middle + dx * most / distance, middle + dy * most / distance};
}

}  // namespace tarnwell
