#include "ui/buttons.h"

#include <oleacc.h>

#include "ui/popup_menu.h"

namespace tarnwell {
namespace {

constexpr double kCorner = 5;  // radius of buttons and fields
constexpr int kIconSide = 18;
constexpr int kMarkSide = 18;  // of checks and radio buttons
constexpr int kMarkLeft = 4;   // room for the focus around them

}  // namespace

void Label::Create(HWND parent, const std::wstring& text) {
  Control::Create(parent, text, ROLE_SYSTEM_STATICTEXT, false);
}

void Label::Paint(Painter& painter, const Box& client) {
  const Theme& theme = look().theme;
  if (wrapped_) {
    painter.Paragraph(client, Text(), face_, quiet_ ? theme.quiet : theme.text);
    return;
  }
  painter.Text(client, Text(), face_, quiet_ ? theme.quiet : theme.text, align_ | DT_NOPREFIX);
}

void Button::Create(HWND parent, const std::wstring& name, bool text_shown) {
  text_shown_ = text_shown;
  Control::Create(parent, name, ROLE_SYSTEM_PUSHBUTTON, true);
}

void Button::SetChosen(bool chosen) {
  if (chosen_ == chosen) return;
  chosen_ = chosen;
  SetAccessibleChecked(chosen);
  Invalidate();
}

Colour Button::PaintGround(Painter& painter, const Box& client) {
  const Theme& theme = look().theme;
  const double radius = look().scale.Exact(kCorner);
  Colour ground = GroundColour();
  Colour text = enabled() ? theme.text : theme.disabled;
  const bool hot = enabled() && hovered();
  if (kind_ == ButtonKind::kAccent && enabled()) {
    ground = held() ? Mix(theme.accent, theme.text, 0.2)
             : hot  ? Mix(theme.accent, theme.text, 0.1)
                    : theme.accent;
    text = theme.on_accent;
  } else if (chosen_) {
    ground = Mix(theme.card, theme.accent, held() ? 0.28 : 0.18);
  } else if (enabled() && held()) {
    ground = theme.pressed;
  } else if (hot) {
    ground = theme.hover;
  } else if (kind_ == ButtonKind::kPlain) {
    ground = theme.card;
  }
  painter.Round(client, radius, ground);
  if (chosen_) {
    painter.Outline(client, radius, look().scale.Exact(1.5), theme.accent);
  } else if (kind_ == ButtonKind::kPlain || (kind_ == ButtonKind::kAccent && !enabled())) {
    painter.Outline(client, radius, 1, theme.border);
  }
  if (ShowsFocus()) {
    const bool on_accent = kind_ == ButtonKind::kAccent && enabled();
    painter.Outline(on_accent ? Inset(client, look().Px(2), look().Px(2)) : client, radius,
                    look().scale.Exact(2), on_accent ? theme.on_accent : theme.accent);
  }
  return text;
}

void Button::Paint(Painter& painter, const Box& client) {
  const Colour colour = PaintGround(painter, client);
  const std::wstring name = Text();
  const int side = look().Px(kIconSide);
  if (!glyph_) {
    painter.Text(client, name, Face::kBody, colour, DT_CENTER);
    return;
  }
  if (!text_shown_) {
    painter.Icon(Centred(client, side, side), *glyph_, colour);
    return;
  }
  const int gap = look().Px(6);
  const int text_width = TextSize(look(), Face::kBody, name).cx;
  const int whole = std::min(client.width - look().Px(kGrid), side + gap + text_width);
  const Box inner = Centred(client, whole, client.height);
  painter.Icon({inner.x, client.y + (client.height - side) / 2, side, side}, *glyph_, colour);
  painter.Text({inner.x + side + gap, client.y, inner.width - side - gap, client.height}, name,
               Face::kBody, colour);
}

LRESULT Button::Handle(UINT message, WPARAM w, LPARAM l) {
  // A repeated key press goes on holding.
  if (message == WM_KEYDOWN && w == VK_SPACE && !(l & (1 << 30))) holding(true);
  if (message == WM_KEYUP && w == VK_SPACE) holding(false);
  if (message == WM_CAPTURECHANGED || message == WM_KILLFOCUS) holding(false);
  return Control::Handle(message, w, l);
}

void PictureButton::Paint(Painter& painter, const Box& client) {
  face_(painter, client, PaintGround(painter, client));
}

void CheckBox::Create(HWND parent, const std::wstring& caption) {
  Control::Create(parent, caption, ROLE_SYSTEM_CHECKBUTTON, true);
}

void CheckBox::Update() {
  SetAccessibleChecked(is_on());
  Invalidate();
}

void CheckBox::Paint(Painter& painter, const Box& client) {
  const Theme& theme = look().theme;
  const int side = look().Px(kMarkSide);
  const Box mark = {client.x + look().Px(kMarkLeft), client.y + (client.height - side) / 2, side,
                    side};
  const double radius = look().scale.Exact(4);
  if (is_on()) {
    painter.Round(mark, radius, enabled() ? theme.accent : theme.disabled);
    painter.Icon(Inset(mark, look().Px(2), look().Px(2)), Glyph::kCheck, theme.on_accent);
  } else {
    painter.Round(mark, radius, held() ? theme.pressed : hovered() ? theme.hover : theme.card);
    painter.Outline(mark, radius, look().scale.Exact(1.25),
                    enabled() ? theme.control_border : theme.disabled);
  }
  const int text_left = mark.right() + look().Px(kGrid);
  painter.Text({text_left, client.y, client.right() - text_left, client.height}, Text(),
               Face::kBody, enabled() ? theme.text : theme.disabled);
  if (ShowsFocus()) painter.Focus(client, radius);
}

void RadioButton::Create(HWND parent, const std::wstring& caption) {
  Control::Create(parent, caption, ROLE_SYSTEM_RADIOBUTTON, true);
  Update();
}

void RadioButton::Update() {
  SetAccessibleChecked(is_on());
  Invalidate();
}

bool RadioButton::OnKey(WPARAM key) {
  const bool back = key == VK_UP || key == VK_LEFT;
  if (!back && key != VK_DOWN && key != VK_RIGHT) return false;
  const UINT direction = back ? GW_HWNDPREV : GW_HWNDNEXT;
  HWND next = GetWindow(handle(), direction);
  while (next && !IsWindowEnabled(next)) next = GetWindow(next, direction);
  if (next && (SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON)) {
    SetFocus(next);
    if (arrows_choose) SendMessageW(next, BM_CLICK, 0, 0);
  }
  return true;
}

void RadioButton::Paint(Painter& painter, const Box& client) {
  const Theme& theme = look().theme;
  const double radius = look().scale.Exact(kMarkSide / 2.0);
  const Point centre = {client.x + look().Px(kMarkLeft) + radius, client.y + client.height / 2.0};
  if (is_on()) {
    painter.Disc(centre, radius, enabled() ? theme.accent : theme.disabled);
    painter.Disc(centre, radius * 0.42, theme.on_accent);
  } else {
    painter.Disc(centre, radius, hovered() ? theme.hover : theme.card);
    painter.Ring(centre, radius - look().scale.Exact(0.75), look().scale.Exact(1.25),
                 enabled() ? theme.control_border : theme.disabled);
  }
  const int text_left = client.x + look().Px(kMarkLeft + kMarkSide + kGrid);
  painter.Text({text_left, client.y, client.right() - text_left, client.height}, Text(),
               Face::kBody, enabled() ? theme.text : theme.disabled);
  if (ShowsFocus()) painter.Focus(client, look().scale.Exact(4));
}

void ChoiceBox::Create(HWND parent, const std::wstring& name) {
  Control::Create(parent, name, ROLE_SYSTEM_COMBOBOX, true);
}

void ChoiceBox::SetShown(const std::wstring& shown) {
  if (shown_ == shown) return;
  shown_ = shown;
  SetAccessibleValue(shown);
  Invalidate();
}

void ChoiceBox::Paint(Painter& painter, const Box& client) {
  const Theme& theme = look().theme;
  const double radius = look().scale.Exact(kCorner);
  const Colour ground = !enabled()  ? theme.card
                        : held()    ? theme.pressed
                        : hovered() ? theme.hover
                                    : theme.card;
  painter.Round(client, radius, ground);
  painter.Outline(client, radius, 1, enabled() ? theme.control_border : theme.border);
  const int side = look().Px(16);
  const Colour text = enabled() ? theme.text : theme.disabled;
  const Box arrow = {client.right() - side - look().Px(kGrid), client.y, side, client.height};
  painter.Icon(arrow, Glyph::kChevronDown, text);
  const int left = client.x + look().Px(10);
  painter.Text({left, client.y, arrow.x - left - look().Px(4), client.height}, shown_, Face::kBody,
               text, DT_LEFT | DT_NOPREFIX);
  if (ShowsFocus()) painter.Focus(client, radius);
}

void ChoiceBox::OnClick() {
  std::vector<MenuEntry> rows;
  for (const Entry& entry : entries()) {
    rows.push_back({.text = entry.text, .checked = entry.current});
  }
  if (rows.empty()) return;
  RECT rect = {};
  GetWindowRect(handle(), &rect);
  const MenuAnswer answer = ChooseFromMenu(
      GetAncestor(handle(), GA_ROOT), look(), rows, {rect.left, rect.bottom + look().Px(2)},
      rect.right - rect.left, /*by_keyboard=*/look().show_focus);
  if (answer.chosen) chosen(*answer.chosen);
}

bool ChoiceBox::OnKey(WPARAM key) {
  if (key != VK_DOWN && key != VK_F4) return false;
  OnClick();
  return true;
}

}  // namespace tarnwell
