#include "ui/swatch_control.h"

#include <oleacc.h>

namespace tarnwell {

void SwatchControl::Create(HWND parent, const std::wstring& name) {
  Control::Create(parent, name, ROLE_SYSTEM_GRAPHIC, false);
}

void SwatchControl::SetColour(const Rgb& colour) {
  if (colour == colour_) return;
  colour_ = colour;
  const std::wstring value = std::to_wstring(colour.red) + L", " + std::to_wstring(colour.green) +
                             L", " + std::to_wstring(colour.blue);
  SetAccessibleValue(value);
  SetTip(value);
  Invalidate();
}

void SwatchControl::Paint(Painter& painter, const Box& client) {
  const double radius = look().scale.Exact(5);
  painter.Round(client, radius,
                {static_cast<std::uint8_t>(colour_.red), static_cast<std::uint8_t>(colour_.green),
                 static_cast<std::uint8_t>(colour_.blue)});
  painter.Outline(client, radius, 1, look().theme.control_border);
}

}  // namespace tarnwell
