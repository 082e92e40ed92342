#include "ui/switch_control.h"

#include <oleacc.h>

namespace tarnwell {
namespace {
constexpr int kWidth = 34;
constexpr int kHeight = 18;
}  // namespace

void SwitchControl::Create(HWND parent, const std::wstring& name) {
  Control::Create(parent, name, ROLE_SYSTEM_CHECKBUTTON, true);
}

void SwitchControl::Update() {
  SetAccessibleChecked(is_on());
  Invalidate();
}

void SwitchControl::Paint(Painter& painter, const Box& client) {
  const Theme& theme = look().theme;
  const Box pill = Centred(client, look().Px(kWidth), look().Px(kHeight));
  const double radius = pill.height / 2.0;
  const double middle = pill.y + radius;
  if (is_on()) {
    painter.Round(pill, radius, hovered() ? Mix(theme.accent, theme.text, 0.12) : theme.accent);
    painter.Disc({pill.right() - radius, middle}, radius - look().scale.Exact(3), theme.on_accent);
  } else {
    painter.Round(pill, radius, hovered() ? theme.hover : theme.card);
    painter.Outline(pill, radius, look().scale.Exact(1.25), theme.control_border);
    painter.Disc({pill.x + radius, middle}, radius - look().scale.Exact(4), theme.control_border);
  }
  if (ShowsFocus()) painter.Focus(Inset(pill, -look().Px(3), -look().Px(3)), radius + 3);
}

}  // namespace tarnwell
