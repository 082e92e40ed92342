#include "ui/scroll_view.h"

#include <algorithm>
#include <windowsx.h>

#include "ui/look/panel_layout.h"

namespace tarnwell {
namespace {

constexpr int kScrollBarWidth = 12;
constexpr int kWheelStep = 6 * kGrid;
constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;

}  // namespace

ScrollView::ScrollView(const Look& look) : look_(look), content_(*this), scroll_bar_(look) {}

void ScrollView::Create(HWND parent, const std::wstring& name) {
  Make(kChildClass, name, kStyle, WS_EX_CONTROLPARENT, parent, {});
  content_.Create(handle(), name);
  scroll_bar_.Create(handle());
  scroll_bar_.scrolled = [this](int offset) { ScrollTo(offset); };
}

void ScrollView::Content::Create(HWND parent, const std::wstring& name) {
  Make(kChildClass, name, kStyle, WS_EX_CONTROLPARENT, parent, {});
}

void ScrollView::PlaceContent() {
  const Box view = Client();
  offset_ = ClampScroll(offset_, height_, view.height);
  content_.Place({0, -offset_, view.width, std::max(height_, view.height)});
  scroll_bar_.Update(height_, view.height, offset_);
}

void ScrollView::SetContentHeight(int height) {
  height_ = height;
  PlaceContent();
  const Box view = Client();
  const int bar = look_.Px(kScrollBarWidth);
  scroll_bar_.Place({view.width - bar - 1, look_.Px(4), bar, view.height - 2 * look_.Px(4)});
  SetWindowPos(scroll_bar_.handle(), HWND_TOP, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void ScrollView::ScrollTo(int offset) {
  offset_ = offset;
  PlaceContent();
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void ScrollView::Wheel(int delta) {
  ScrollTo(offset_ - delta * look_.Px(kWheelStep) / WHEEL_DELTA);
}

void ScrollView::ShowChild(HWND child) {
  RECT rect = {};
  GetWindowRect(child, &rect);
  MapWindowPoints(nullptr, content_.handle(), reinterpret_cast<POINT*>(&rect), 2);
  const int margin = look_.Px(kGrid);
  const int wanted =
      ScrollToShow(offset_, rect.top - margin, rect.bottom + margin, Client().height);
  if (wanted != offset_) ScrollTo(wanted);
}

void ScrollView::PaintContent(Painter& painter, const Box& client) {
  painter.Fill(client, look_.theme.page);
}

LRESULT ScrollView::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_SIZE:
      OnSized();
      return 0;
    case WM_MOUSEWHEEL:
      Wheel(GET_WHEEL_DELTA_WPARAM(w));
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      const PaintScope paint(handle());
      Painter painter(paint.dc(), paint.area(), look_);
      painter.Fill(Client(), look_.theme.page);
      return 0;
    }
  }
  return Window::Handle(message, w, l);
}

LRESULT ScrollView::Content::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      const PaintScope paint(handle());
      Painter painter(paint.dc(), paint.area(), view_.look_);
      view_.PaintContent(painter, Client());
      return 0;
    }
    case WM_LBUTTONUP:
      view_.OnContentClick(GET_X_LPARAM(l), GET_Y_LPARAM(l));
      return 0;
    case kFocusArrived:
      view_.ShowChild(reinterpret_cast<HWND>(w));
      return 0;
  }
  return Window::Handle(message, w, l);
}

}  // namespace tarnwell
