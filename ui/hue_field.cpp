#include "ui/hue_field.h"

#include <oleacc.h>

#include "ui/look/hue_wheel.h"

namespace tarnwell {

void HueField::Create(HWND parent) { Control::Create(parent, L"Hue", ROLE_SYSTEM_SLIDER, true); }

void HueField::Update() {
  const HuePicker hue = read();
  SetAccessibleValue(std::to_wstring(hue.marker_x) + L", " + std::to_wstring(hue.marker_y));
  Invalidate();
}

const Picture& HueField::Wheel(int side) {
  const Colour ground = GroundColour();
  if (!wheel_ || wheel_->width() != side || wheel_ground_ != ground) {
    wheel_ = HueWheel(side, ground);
    wheel_ground_ = ground;
  }
  return wheel_;
}

void HueField::Paint(Painter& painter, const Box& client) {
  const int side = std::min(client.width, client.height);
  if (const Picture& wheel = Wheel(side)) painter.Image({0, 0, side, side}, wheel->view());
  const HuePicker hue = read();
  const double scale = static_cast<double>(side) / kHueFieldSide;
  const double radius = look().scale.Exact(6);
  const Point marker = MarkerInWheel({(hue.marker_x + 0.5) * scale, (hue.marker_y + 0.5) * scale},
                                     side, radius + look().scale.Exact(2));
  painter.Ring(marker, radius, look().scale.Exact(3.5), Hex(0x16191C));
  painter.Ring(marker, radius, look().scale.Exact(2), Hex(0xFFFFFF));
  if (ShowsFocus()) painter.Focus({0, 0, side, side}, side / 2.0);
}

void HueField::Drag(int x, int y) {
  const int side = std::min(Client().width, Client().height);
  if (side <= 0) return;
  moved(x * kHueFieldSide / side, y * kHueFieldSide / side);
  Update();
}

bool HueField::OnKey(WPARAM key) {
  const int dx = key == VK_RIGHT ? 1 : key == VK_LEFT ? -1 : 0;
  const int dy = key == VK_DOWN ? 1 : key == VK_UP ? -1 : 0;
  if (dx == 0 && dy == 0) return false;
  const HuePicker hue = read();
  moved(hue.marker_x + dx, hue.marker_y + dy);
  Update();
  return true;
}

}  // namespace tarnwell
