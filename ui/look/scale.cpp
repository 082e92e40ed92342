#include "ui/look/scale.h"

#include <charconv>

namespace tarnwell {

int Scale::Px(int size) const {
  const int doubled = 2 * size * dpi;
  return doubled >= 0 ? (doubled + 96) / 192 : -((-doubled + 96) / 192);
}

Scale ForcedScale(std::string_view percent, Scale otherwise) {
  int value = 0;
  const auto [end, error] = std::from_chars(percent.data(), percent.data() + percent.size(), value);
  if (error != std::errc() || end != percent.data() + percent.size()) return otherwise;
  if (value < 100 || value > 400) return otherwise;
  return {value * 96 / 100};
}

}  // namespace tarnwell
