#include "ui/scroll_bar.h"

#include <oleacc.h>

#include "ui/look/panel_layout.h"

namespace tarnwell {

void ScrollBar::Create(HWND parent) {
  Control::Create(parent, L"Scroll", ROLE_SYSTEM_SCROLLBAR, false);
}

void ScrollBar::Update(int content, int view, int offset) {
  if (content == content_ && view == view_ && offset == offset_) return;
  content_ = content;
  view_ = view;
  offset_ = offset;
  Show(content_ > view_);
  Invalidate();
}

Box ScrollBar::Thumb() const {
  const Box client = Client();
  const int last = LastScroll(content_, view_);
  if (last == 0) return {};
  const int least = look().Px(4 * kGrid);
  const int height = std::max(
      least, static_cast<int>(static_cast<std::int64_t>(client.height) * view_ / content_));
  const int room = client.height - height;
  return {0, static_cast<int>(static_cast<std::int64_t>(room) * offset_ / last), client.width,
          height};
}

void ScrollBar::Paint(Painter& painter, const Box&) {
  const Box thumb = Thumb();
  if (thumb.empty()) return;
  const int width = look().Px(hovered() || held() ? 8 : 4);
  const Box bar =
      Inset({thumb.x + (thumb.width - width) / 2, thumb.y, width, thumb.height}, 0, look().Px(2));
  painter.Round(bar, width / 2.0, held() ? look().theme.control_border : look().theme.track);
}

void ScrollBar::OnPress(int x, int y) {
  const Box thumb = Thumb();
  grabbed_ = thumb.Contains(x, y) ? y - thumb.y : thumb.height / 2;
  OnDrag(x, y);
}

void ScrollBar::OnDrag(int, int y) {
  const int room = Client().height - Thumb().height;
  if (room <= 0) return;
  const std::int64_t last = LastScroll(content_, view_);
  scrolled(ClampScroll(static_cast<int>((y - grabbed_) * last / room), content_, view_));
}

}  // namespace tarnwell
