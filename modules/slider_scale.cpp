#include "modules/slider_scale.h"

#include <cmath>

namespace tarnwell {

// The operations keep this order: regrouping them moves a few positions to another value.

int ValueAtPosition(SliderScale scale, int position) {
  const double p = position;
  switch (scale) {
    case SliderScale::kPercent:
      return static_cast<int>(std::floor(p / 1.81));
    case SliderScale::kSignedPercent:
      return static_cast<int>(std::floor((p / 91 - 1) * 100));
    case SliderScale::kOneToTen:
      return static_cast<int>(std::floor(p / 91 * 4.5)) + 1;
    case SliderScale::kDegrees:
      return static_cast<int>(std::floor(p / 91 * 180)) - 180;
  }
  return 0;
}

int PositionOfValue(SliderScale scale, int value) {
  const double v = value;
  double position = 0;
  switch (scale) {
    case SliderScale::kPercent:
      position = v * 1.81;
      break;
    case SliderScale::kSignedPercent:
      position = (v / 100 + 1) * 91;
      break;
    case SliderScale::kOneToTen:
      position = (v - 1) / 4.5 * 91;
      break;
    case SliderScale::kDegrees:
      position = (v + 180) / 180 * 91;
      break;
  }
  return static_cast<int>(std::nearbyint(position));
}

}  // namespace tarnwell
