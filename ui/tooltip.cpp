#include "ui/tooltip.h"

#include "ui/control.h"

namespace tarnwell {
namespace {
constexpr UINT_PTR kDelayTimer = 1;
constexpr UINT kDelayMilliseconds = 500;
}  // namespace

Tooltip& Tooltip::Only() {
  static Tooltip tooltip;
  if (!tooltip.handle()) {
    tooltip.Make(L"TarnwellTip", L"", WS_POPUP,
                 WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_TRANSPARENT, nullptr,
                 {});
  }
  return tooltip;
}

void Tooltip::Await(const Control& control, const Look& look) {
  Tooltip& tooltip = Only();
  tooltip.look_ = &look;
  tooltip.control_ = control.handle();
  tooltip.text_ = control.tip();
  SetTimer(tooltip.handle(), kDelayTimer, kDelayMilliseconds, nullptr);
}

void Tooltip::Hide(const Control& control) {
  if (Only().control_ == control.handle()) Hide();
}

void Tooltip::Hide() {
  Tooltip& tooltip = Only();
  tooltip.control_ = nullptr;
  KillTimer(tooltip.handle(), kDelayTimer);
  ShowWindow(tooltip.handle(), SW_HIDE);
}

void Tooltip::ShowNow() {
  KillTimer(handle(), kDelayTimer);
  RECT control = {};
  if (!control_ || !GetWindowRect(control_, &control)) return;
  const SIZE text = TextSize(*look_, Face::kCaption, text_);
  const int width = text.cx + 2 * look_->Px(kGrid) + 2;
  const int height = text.cy + look_->Px(kGrid);
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoW(MonitorFromWindow(control_, MONITOR_DEFAULTTONEAREST), &monitor);
  const int centred = (control.left + control.right - width) / 2;
  const int x =
      std::max<int>(monitor.rcWork.left, std::min<int>(centred, monitor.rcWork.right - width));
  int y = control.bottom + look_->Px(kGrid / 2);
  if (y + height > monitor.rcWork.bottom) y = control.top - height - look_->Px(kGrid / 2);
  SetWindowPos(handle(), HWND_TOPMOST, x, y, width, height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
  Invalidate();
}

LRESULT Tooltip::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_TIMER:
      ShowNow();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      const PaintScope paint(handle());
      Painter painter(paint.dc(), paint.area(), *look_);
      const Theme& theme = look_->theme;
      painter.Fill(Client(), theme.dark ? theme.pressed : theme.text);
      painter.Text(Client(), text_, Face::kCaption, theme.dark ? theme.text : theme.card,
                   DT_CENTER | DT_NOPREFIX);
      return 0;
    }
  }
  return Window::Handle(message, w, l);
}

}  // namespace tarnwell
