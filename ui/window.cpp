#include "ui/window.h"

#include <commctrl.h>

#include "ui/look.h"

namespace tarnwell {

void InitialiseControls() {
  const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_USEREX_CLASSES};
  InitCommonControlsEx(&classes);
}

std::wstring AsCaption(std::wstring_view text) {
  std::wstring caption;
  for (const wchar_t letter : text) caption.append(letter == L'&' ? 2 : 1, letter);
  return caption;
}

Window::~Window() { Destroy(); }

void Window::Destroy() {
  if (!handle_) return;
  const HWND handle = handle_;
  SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
  handle_ = nullptr;
  DestroyWindow(handle);
}

bool Window::Make(const wchar_t* class_name, const std::wstring& text, DWORD style, DWORD extended,
                  HWND parent, const Box& box) {
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  WNDCLASSEXW known = {};
  known.cbSize = sizeof(known);
  if (!GetClassInfoExW(instance, class_name, &known)) {
    known.lpfnWndProc = Procedure;
    known.hInstance = instance;
    known.lpszClassName = class_name;
    known.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    known.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(1));
    RegisterClassExW(&known);
  }
  return CreateWindowExW(extended, class_name, text.c_str(), style, box.x, box.y, box.width,
                         box.height, parent, nullptr, instance, this) != nullptr;
}

LRESULT CALLBACK Window::Procedure(HWND handle, UINT message, WPARAM w, LPARAM l) {
  if (message == WM_NCCREATE) {
    auto* made = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(l)->lpCreateParams);
    made->handle_ = handle;
    SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
  }
  auto* window = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
  if (!window) return DefWindowProcW(handle, message, w, l);
  if (message == WM_NCDESTROY) {
    window->handle_ = nullptr;
    SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
    return DefWindowProcW(handle, message, w, l);
  }
  return window->Handle(message, w, l);
}

LRESULT Window::Handle(UINT message, WPARAM w, LPARAM l) {
  return DefWindowProcW(handle_, message, w, l);
}

Box Window::Client() const {
  RECT rect = {};
  GetClientRect(handle_, &rect);
  return ToBox(rect);
}

void Window::Place(const Box& box) {
  SetWindowPos(handle_, nullptr, box.x, box.y, box.width, box.height,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void Window::Show(bool visible) {
  if (visible == ((GetWindowLongW(handle_, GWL_STYLE) & WS_VISIBLE) != 0)) return;
  ShowWindow(handle_, visible ? SW_SHOWNA : SW_HIDE);
}

void Window::Enable(bool enabled) {
  if ((IsWindowEnabled(handle_) != FALSE) == enabled) return;
  EnableWindow(handle_, enabled);
}

void Window::Invalidate() { InvalidateRect(handle_, nullptr, FALSE); }

std::wstring Window::Text() const {
  std::wstring text(GetWindowTextLengthW(handle_), L'\0');
  GetWindowTextW(handle_, text.data(), static_cast<int>(text.size()) + 1);
  return text;
}

void Window::SetText(const std::wstring& text) {
  if (Text() != text) SetWindowTextW(handle_, text.c_str());
}

}  // namespace tarnwell
