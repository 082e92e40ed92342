#include "ui/messages.h"

#include <string>
#include <utility>
#include <windowsx.h>

#include "ui/window.h"

namespace tarnwell {
namespace {

constexpr ULONGLONG kEventsMilliseconds = 10;

bool IsOurs(HWND root) {
  wchar_t name[32] = {};
  GetClassNameW(root, name, 32);
  return lstrcmpW(name, kMainClass) == 0 || lstrcmpW(name, kDialogClass) == 0;
}

// The shortcut that a key press spells, empty for other keys.
std::string Spelled(const MSG& message) {
  const auto key = static_cast<char>(message.wParam);
  if (message.message == WM_SYSKEYDOWN && message.wParam >= 'A' && message.wParam <= 'Z') {
    return std::string("ALT+") + key;
  }
  if (message.message == WM_KEYDOWN && message.wParam == VK_F1) return "F1";
  return {};
}

bool IsNavigation(WPARAM key) {
  return key == VK_TAB || (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_MENU;
}

// Enter presses the button that has the focus.
bool PressFocusedButton(const MSG& message) {
  if (message.message != WM_KEYDOWN || message.wParam != VK_RETURN) return false;
  if (!(SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_UNDEFPUSHBUTTON)) return false;
  // Held down, it must not press what the first press has brought up.
  constexpr LPARAM kRepeated = 1 << 30;
  if (!(message.lParam & kRepeated)) SendMessageW(message.hwnd, BM_CLICK, 0, 0);
  return true;
}

// The wheel turns what is below the pointer, whatever has the focus.
void SendToPointer(MSG& message) {
  if (message.message != WM_MOUSEWHEEL && message.message != WM_MOUSEHWHEEL) return;
  const HWND below = WindowFromPoint({GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)});
  if (!below || GetWindowThreadProcessId(below, nullptr) != GetCurrentThreadId()) return;
  if (IsWindowEnabled(GetAncestor(below, GA_ROOT))) message.hwnd = below;
}

}  // namespace

bool Messages::HandleKey(const MSG& message, HWND root) {
  if (IsNavigation(message.wParam)) on_keyboard_used(true);
  if (PressFocusedButton(message)) return true;
  if (root != main_window) return false;
  const std::string shortcut = Spelled(message);
  if (shortcut.empty() || !on_shortcut(shortcut.c_str())) return false;
  alt_used_ = message.message == WM_SYSKEYDOWN;
  return true;
}

// The system takes Alt for pressed alone, which leads into the menus, where it does not see the
// letter of a shortcut before Alt is let go.
bool Messages::IsEndOfShortcut(const MSG& message) {
  if (message.wParam != VK_MENU) return false;
  const bool released = message.message == WM_SYSKEYUP || message.message == WM_KEYUP;
  return released && std::exchange(alt_used_, false);
}

void Messages::Dispatch(MSG& message) {
  SendToPointer(message);
  const HWND root = message.hwnd ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
  if (root && IsOurs(root)) {
    const bool key = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
    if (key && HandleKey(message, root)) return;
    if (IsEndOfShortcut(message)) return;
    if (message.message == WM_LBUTTONDOWN) on_keyboard_used(false);
    if (IsDialogMessageW(root, &message)) return;
  }
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

void Messages::Run() {
  // A pass lets events in at every column: asking the system so often would take longer than the
  // columns. What waits this long is still at once for a person.
  const ULONGLONG now = GetTickCount64();
  if (held_ || now - last_run_ < kEventsMilliseconds) return;
  last_run_ = now;
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Dispatch(message);
  }
}

int Messages::RunUntilQuit() {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) Dispatch(message);
  return static_cast<int>(message.wParam);
}

void Messages::RunWhile(const std::function<bool()>& goes_on) {
  MSG message;
  while (goes_on()) {
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Dispatch(message);
  }
}

}  // namespace tarnwell
