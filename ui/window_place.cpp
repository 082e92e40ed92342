#include "ui/window_place.h"

#include <algorithm>
#include <optional>

#include "ui/look.h"

namespace tarnwell {
namespace {

std::optional<MONITORINFO> InfoOf(HMONITOR monitor) {
  MONITORINFO info = {};
  info.cbSize = sizeof(info);
  if (!monitor || !GetMonitorInfoW(monitor, &info)) return std::nullopt;
  return info;
}

// The system tells where a window stands "normally" from the corner of the work area, not of the
// screen: the two differ where a taskbar lies at the left or at the top.
RECT OnScreen(RECT in_work_area) {
  const auto screen = InfoOf(MonitorFromRect(&in_work_area, MONITOR_DEFAULTTONEAREST));
  if (screen) {
    OffsetRect(&in_work_area, screen->rcWork.left - screen->rcMonitor.left,
               screen->rcWork.top - screen->rcMonitor.top);
  }
  return in_work_area;
}

void Move(HWND window, const Box& box) {
  SetWindowPos(window, nullptr, box.x, box.y, box.width, box.height,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

}  // namespace

RECT WorkArea(HWND window) {
  const auto screen = InfoOf(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY));
  return screen ? screen->rcWork : RECT{};
}

SIZE FrameWithin(const RECT& work, const ClientSize& client, DWORD style, Scale scale) {
  RECT rect = {0, 0, client.width, client.height};
  AdjustWindowRectExForDpi(&rect, style, FALSE, 0, static_cast<UINT>(scale.dpi));
  return {std::min(rect.right - rect.left, work.right - work.left),
          std::min(rect.bottom - rect.top, work.bottom - work.top)};
}

void KeepPlacement(HWND window, WindowPlacement& kept) {
  WINDOWPLACEMENT placement = {};
  placement.length = sizeof(placement);
  if (!GetWindowPlacement(window, &placement)) return;
  kept.maximized = IsZoomed(window);
  RECT rect = OnScreen(placement.rcNormalPosition);
  if (kept.maximized) GetWindowRect(window, &rect);
  const Box box = ToBox(rect);
  kept.current() = {box.x, box.y, box.width, box.height};
}

void RestorePlacement(HWND window, WindowPlacement& kept) {
  const WindowBounds& bounds = kept.current();
  if (bounds.width <= 0 || bounds.height <= 0) return;
  const Box box = {bounds.left, bounds.top, bounds.width, bounds.height};
  const RECT rect = ToRect(box);
  const auto screen = InfoOf(MonitorFromRect(&rect, MONITOR_DEFAULTTONULL));
  if (!screen) return;
  if (!kept.maximized) {
    Move(window, box);
    // On a screen of another scale the window has just resized itself by the ratio of the scales;
    // the kept size is already that screen's.
    return Move(window, box);
  }
  // Its size at its largest is the screen's affair; what counts is on which screen that was.
  RECT start = {};
  if (!GetWindowRect(window, &start)) return;
  const Box size = ToBox(start);
  Move(window, {screen->rcWork.left, screen->rcWork.top, size.width, size.height});
}

}  // namespace tarnwell
