#include "ui/slider_control.h"

#include <cstdlib>
#include <oleacc.h>
#include <windowsx.h>

#include "ui/look/panel_layout.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kTextHeight = 20;
constexpr int kArrowSide = 24;
constexpr int kKnobRadius = 8;
constexpr int kPageSteps = 10;
// A held arrow goes on after a moment, like a held key.
constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kFirstRepeat = 350;
constexpr UINT kNextRepeat = 60;

}  // namespace

SliderControl::~SliderControl() = default;

void SliderControl::Create(HWND parent, const std::wstring& name) {
  Control::Create(parent, name, ROLE_SYSTEM_SLIDER, true);
}

void SliderControl::Update() {
  const std::string text = read().text;
  Invalidate();
  if (text == told_) return;
  told_ = text;
  SetAccessibleValue(Wide(text));
}

Box SliderControl::LeftArrow() const {
  const int side = look().Px(kArrowSide);
  return {0, look().Px(kTextHeight), side, side};
}

Box SliderControl::RightArrow() const {
  return {Client().width - LeftArrow().width, LeftArrow().y, LeftArrow().width, LeftArrow().height};
}

Box SliderControl::Track() const {
  const int left = LeftArrow().right() + look().Px(kKnobRadius + 4);
  return {left, LeftArrow().y, Client().width - 2 * left, LeftArrow().height};
}

SliderControl::Part SliderControl::PartAt(int x, int y) const {
  if (LeftArrow().Contains(x, y)) return Part::kLeftArrow;
  if (RightArrow().Contains(x, y)) return Part::kRightArrow;
  if (Inset(Track(), -look().Px(kKnobRadius + 4), 0).Contains(x, y)) return Part::kTrack;
  return Part::kNone;
}

void SliderControl::PaintArrow(Painter& painter, const Box& box, Glyph glyph, Part part) {
  const Theme& theme = look().theme;
  if (enabled() && (under_pointer_ == part || dragged_ == part)) {
    painter.Round(box, look().scale.Exact(5), dragged_ == part ? theme.pressed : theme.hover);
  }
  const int side = look().Px(16);
  painter.Icon(Centred(box, side, side), glyph, enabled() ? theme.quiet : theme.disabled);
}

void SliderControl::Paint(Painter& painter, const Box& client) {
  const Theme& theme = look().theme;
  const Slider slider = read();
  const Colour text = enabled() ? theme.text : theme.disabled;
  const Colour mark = enabled() ? theme.accent : theme.disabled;
  const Box words = {client.x, client.y, client.width, look().Px(kTextHeight)};
  painter.Text(words, Text(), Face::kBody, text, DT_LEFT | DT_NOPREFIX);
  painter.Text(words, Wide(slider.text), Face::kStrong, text, DT_RIGHT | DT_NOPREFIX);
  PaintArrow(painter, LeftArrow(), Glyph::kChevronLeft, Part::kLeftArrow);
  PaintArrow(painter, RightArrow(), Glyph::kChevronRight, Part::kRightArrow);

  const Box track = Track();
  const int knob_x = KnobX(slider.position, track.x, track.width);
  const int thick = look().Px(4);
  const Box line = {track.x, track.y + (track.height - thick) / 2, track.width, thick};
  painter.Round(line, thick / 2.0, theme.track);
  const int origin_x = KnobX(origin, track.x, track.width);
  const int from = std::min(origin_x, knob_x);
  painter.Round({from, line.y, std::abs(knob_x - origin_x), thick}, thick / 2.0, mark);
  const Point centre = {knob_x + 0.0, track.y + track.height / 2.0};
  const double radius = look().scale.Exact(kKnobRadius);
  if (ShowsFocus())
    painter.Ring(centre, radius + look().scale.Exact(3), look().scale.Exact(2), theme.accent);
  painter.Disc(centre, radius, theme.dark ? theme.pressed : theme.card);
  painter.Ring(centre, radius - 0.5, 1, enabled() ? theme.control_border : theme.disabled);
  const bool hot = under_pointer_ == Part::kTrack || dragged_ == Part::kTrack;
  painter.Disc(centre, look().scale.Exact(dragged_ == Part::kTrack ? 4 : hot ? 5.5 : 4.5), mark);
}

void SliderControl::OnPress(int x, int y) {
  dragged_ = PartAt(x, y);
  if (dragged_ == Part::kTrack) moved(PositionAtX(x, Track().x, Track().width));
  if (dragged_ == Part::kLeftArrow || dragged_ == Part::kRightArrow) {
    stepped(dragged_ == Part::kLeftArrow ? -1 : 1);
    SetTimer(handle(), kRepeatTimer, kFirstRepeat, nullptr);
  }
  Update();
}

void SliderControl::OnDrag(int x, int) {
  if (dragged_ != Part::kTrack) return;
  moved(PositionAtX(x, Track().x, Track().width));
  Update();
}

void SliderControl::OnRelease(int, int) {
  KillTimer(handle(), kRepeatTimer);
  dragged_ = Part::kNone;
  Update();
}

bool SliderControl::OnKey(WPARAM key) {
  switch (key) {
    case VK_LEFT:
    case VK_DOWN:
      stepped(-1);
      break;
    case VK_RIGHT:
    case VK_UP:
      stepped(1);
      break;
    case VK_PRIOR:
    case VK_NEXT:
      for (int i = 0; i < kPageSteps; ++i) stepped(key == VK_PRIOR ? 1 : -1);
      break;
    case VK_HOME:
      moved(0);
      break;
    case VK_END:
      moved(kKnobLast);
      break;
    default:
      return false;
  }
  Update();
  return true;
}

LRESULT SliderControl::Handle(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_TIMER && w == kRepeatTimer) {
    SetTimer(handle(), kRepeatTimer, kNextRepeat, nullptr);
    if (held()) stepped(dragged_ == Part::kLeftArrow ? -1 : 1);
    Update();
    return 0;
  }
  if (message == WM_MOUSEMOVE || message == WM_MOUSELEAVE) {
    const Part part =
        message == WM_MOUSELEAVE ? Part::kNone : PartAt(GET_X_LPARAM(l), GET_Y_LPARAM(l));
    if (part != under_pointer_) Invalidate();
    under_pointer_ = part;
  }
  if (message == WM_CAPTURECHANGED) {
    KillTimer(handle(), kRepeatTimer);
    dragged_ = Part::kNone;
  }
  return Control::Handle(message, w, l);
}

}  // namespace tarnwell
