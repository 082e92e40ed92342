// The hue picker: where the marker lies decides how much of red, green and blue is added or taken.
// The direction from the centre chooses the hue (red to the right, green and blue a third of a turn
// further each, against the clock), the distance how strong it is.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "engine/rounding.h"
#include "imaging/pixel_array.h"
#include "modules/frm_modules.h"
#include "modules/hue_in.h"

namespace tarnwell {
namespace {

constexpr int kHueCentre = 53;  // of the field, and its radius

std::array<float, 3> FactorsAt(int dx, int dy) {
  if (dx == 0 && dy == 0) return {0, 0, 0};
  const double angle = std::atan2(-dy, dx);
  const double strength = std::min(std::sqrt(dx * dx + dy * dy) / kHueCentre, 1.0);
  std::array<float, 3> factors;
  for (int channel = 0; channel < 3; ++channel) {
    const double direction = channel * 120 * std::numbers::pi / 180;
    factors[channel] = static_cast<float>(0.5 * strength * std::cos(angle - direction));
  }
  return factors;
}

int Tinted(int channel, float factor) {
  std::int16_t tinted = 0;
  if (!RoundInto(tinted, channel + channel * static_cast<double>(factor))) return channel;
  return std::clamp<int>(tinted, 0, 255);
}

int Mean(std::uint64_t total, std::size_t count) {
  std::int16_t mean = 0;
  return RoundInto(mean, static_cast<double>(total) / static_cast<double>(count)) ? mean : 0;
}

}  // namespace

void GetHueIn(HuePicker& hue, const PixelView& photo) {
  if (photo.empty()) return;
  std::array<std::uint64_t, 3> totals = {};
  for (std::size_t i = 0; i < photo.byte_count(); i += kBytesPerPixel) {
    totals[0] += photo.data[i + kRed];
    totals[1] += photo.data[i + kGreen];
    totals[2] += photo.data[i + kBlue];
  }
  const std::size_t count = photo.pixel_count();
  hue.lblHue[0] = {Mean(totals[0], count), Mean(totals[1], count), Mean(totals[2], count)};
  MoveHueMarker(hue, hue.marker_x, hue.marker_y);
}

void MoveHueMarker(HuePicker& hue, int x, int y) {
  hue.marker_x = std::clamp(x, 0, kHueFieldLast);
  hue.marker_y = std::clamp(y, 0, kHueFieldLast);
  hue.factors = FactorsAt(hue.marker_x - kHueCentre, hue.marker_y - kHueCentre);
  const Rgb& plain = hue.lblHue[0];
  hue.lblHue[1] = {Tinted(plain.red, hue.factors[0]), Tinted(plain.green, hue.factors[1]),
                   Tinted(plain.blue, hue.factors[2])};
}

}  // namespace tarnwell
