#include "ui/control.h"

#include <windowsx.h>

#include "ui/tooltip.h"

namespace tarnwell {

Control::~Control() {
  if (hovered_) Tooltip::Hide(*this);
}

void Control::Create(HWND parent, const std::wstring& name, DWORD role, bool tab_stop) {
  Make(kChildClass, name, WS_CHILD | WS_VISIBLE | (tab_stop ? WS_TABSTOP : 0), 0, parent, {});
  facts_->role = role;
}

void Control::SetTip(const std::wstring& tip) {
  tip_ = tip;
  facts_->description = tip;
}

void Control::SetAccessibleValue(const std::wstring& value) {
  if (facts_->value == value) return;
  facts_->value = value;
  NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, handle(), OBJID_CLIENT, CHILDID_SELF);
}

void Control::SetAccessibleChecked(bool checked) {
  if (facts_->checked == checked) return;
  facts_->checked = checked;
  NotifyWinEvent(EVENT_OBJECT_STATECHANGE, handle(), OBJID_CLIENT, CHILDID_SELF);
}

void Control::SetHovered(bool hovered) {
  if (hovered_ == hovered) return;
  hovered_ = hovered;
  if (hovered) {
    TRACKMOUSEEVENT track = {sizeof(track), TME_LEAVE, handle(), 0};
    TrackMouseEvent(&track);
    if (!tip_.empty()) Tooltip::Await(*this, look_);
  } else {
    Tooltip::Hide(*this);
  }
  Invalidate();
}

void Control::CheckHovered() {
  POINT point = {};
  GetCursorPos(&point);
  if (hovered_ && (WindowFromPoint(point) != handle() || !enabled())) SetHovered(false);
}

void Control::SetHeld(bool held) {
  if (held_ == held) return;
  held_ = held;
  Invalidate();
}

bool Control::HandlePointer(UINT message, int x, int y) {
  switch (message) {
    case WM_LBUTTONDOWN:
      Tooltip::Hide(*this);
      if (GetWindowLongW(handle(), GWL_STYLE) & WS_TABSTOP) SetFocus(handle());
      SetCapture(handle());
      captured_ = true;
      SetHeld(true);
      OnPress(x, y);
      return true;
    case WM_MOUSEMOVE:
      SetHovered(Client().Contains(x, y));
      if (captured_) {
        SetHeld(Client().Contains(x, y));
        OnDrag(x, y);
      }
      return true;
    case WM_LBUTTONUP: {
      if (!captured_) return true;
      const bool clicked = held_;
      captured_ = false;
      SetHeld(false);
      ReleaseCapture();
      OnRelease(x, y);
      if (clicked) OnClick();
      CheckHovered();
      return true;
    }
    default:
      return false;
  }
}

bool Control::HandleKey(UINT message, WPARAM key) {
  if (key == VK_SPACE && (WantedKeys() & DLGC_BUTTON)) {
    const bool clicked = message == WM_KEYUP && held_;
    SetHeld(message == WM_KEYDOWN);
    if (clicked) OnClick();
    return true;
  }
  return message == WM_KEYDOWN && OnKey(key);
}

void Control::PaintNow() {
  const PaintScope paint(handle());
  Painter painter(paint.dc(), paint.area(), look_);
  painter.Fill(Client(), GroundColour());
  Paint(painter, Client());
}

// Of the focus and the text: messages after which the control only looks different.
void Control::Follow(UINT message) {
  if (message == WM_SETFOCUS) {
    SendMessageW(GetParent(handle()), kFocusArrived, reinterpret_cast<WPARAM>(handle()), 0);
  }
  if (message == WM_KILLFOCUS) SetHeld(false);
  if (message == WM_ENABLE) CheckHovered();
  Invalidate();
}

LRESULT Control::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_PAINT:
      PaintNow();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
      if (HandlePointer(message, GET_X_LPARAM(l), GET_Y_LPARAM(l))) return 0;
      break;
    case WM_MOUSELEAVE:
    case WM_DESTROY:
      SetHovered(false);
      return 0;
    case WM_CAPTURECHANGED:
      captured_ = false;
      SetHeld(false);
      return 0;
    case WM_KEYDOWN:
    case WM_KEYUP:
      if (HandleKey(message, w)) return 0;
      break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
      Follow(message);
      return 0;
    case WM_SETTEXT: {
      const LRESULT result = Window::Handle(message, w, l);
      Invalidate();
      return result;
    }
    case WM_GETDLGCODE:
      return WantedKeys();
    case WM_GETOBJECT:
      if (const auto answer = AnswerGetObject(handle(), facts_, w, l)) return *answer;
      break;
    case BM_CLICK:
      if (enabled()) OnClick();
      return 0;
  }
  return Window::Handle(message, w, l);
}

}  // namespace tarnwell
