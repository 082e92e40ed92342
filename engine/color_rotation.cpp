#include "engine/color_rotation.h"

#include <algorithm>
#include <cstdint>

namespace tarnwell {
namespace {

// numerator / 60 rounded half to even; numerator is not negative.
int SixtiethsRounded(int numerator) {
  const int whole = numerator / 60;
  const int rest = numerator % 60;
  const bool up = rest > 30 || (rest == 30 && whole % 2 == 1);
  return whole + (up ? 1 : 0);
}

// The hue in degrees times (max - min), which makes it a whole number: 0 to 360 x (max - min).
int ScaledHue(int red, int green, int blue, int max, int spread) {
  if (max == red) return 60 * (green - blue) + (green < blue ? 360 * spread : 0);
  if (max == green) return 60 * (blue - red) + 120 * spread;
  return 60 * (red - green) + 240 * spread;
}

void RotateHue(std::uint8_t* pixel, int degrees) {
  const int red = pixel[kRed], green = pixel[kGreen], blue = pixel[kBlue];
  const int max = std::max({red, green, blue});
  const int min = std::min({red, green, blue});
  const int spread = max - min;
  if (spread == 0) return;

  const int circle = 360 * spread;
  // A preset's text may ask for more than a turn; the remainder of a negative number is negative.
  const int turn = degrees % 360 * spread;
  const int hue = (ScaledHue(red, green, blue, max, spread) + turn + circle) % circle;
  const int sixth = hue / (60 * spread);
  const int into_sixth = hue % (60 * spread);

  // In an even sixth the middle channel rises from min to max, in an odd one it falls.
  const int middle = sixth % 2 == 0 ? SixtiethsRounded(60 * min + into_sixth)
                                    : SixtiethsRounded(60 * max - into_sixth);
  // Red, green, blue of each sixth: 0 is min, 1 the middle, 2 max.
  static constexpr int kRoles[6][3] = {{2, 1, 0}, {1, 2, 0}, {0, 2, 1},
                                       {0, 1, 2}, {1, 0, 2}, {2, 0, 1}};
  const int levels[3] = {min, middle, max};
  pixel[kRed] = static_cast<std::uint8_t>(levels[kRoles[sixth][0]]);
  pixel[kGreen] = static_cast<std::uint8_t>(levels[kRoles[sixth][1]]);
  pixel[kBlue] = static_cast<std::uint8_t>(levels[kRoles[sixth][2]]);
}

}  // namespace

void RotateHueOfRow(MutablePixelView pixels, int y, int degrees) {
  for (int x = 0; x < pixels.width; ++x) RotateHue(pixels.at(x, y), degrees);
}

}  // namespace tarnwell
