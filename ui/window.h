#pragma once

#include <string>
#include <string_view>
#include <windows.h>

#include "ui/look/box.h"

namespace tarnwell {

// Told to the parent when a child takes the focus, so that a parent that scrolls can bring it into
// view; the child's handle in wParam.
inline constexpr UINT kFocusArrived = WM_APP + 1;

// `text` as the caption of a control, where "&" would mark an access key.
std::wstring AsCaption(std::wstring_view text);

// A window of the system with its messages as one virtual call. The object owns the window.
class Window {
 public:
  Window() = default;
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND handle() const { return handle_; }
  Box Client() const;
  void Place(const Box& box);
  void Show(bool visible);
  void Enable(bool enabled);
  void Invalidate();
  // The window's text, which screen readers read. Set only when it differs.
  void SetText(const std::wstring& text);
  std::wstring Text() const;

 protected:
  // Makes the window, hidden unless the style says otherwise. False when the system refuses.
  bool Make(const wchar_t* class_name, const std::wstring& text, DWORD style, DWORD extended,
            HWND parent, const Box& box);
  void Destroy();

  virtual LRESULT Handle(UINT message, WPARAM w, LPARAM l);

 private:
  static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM w, LPARAM l);
  HWND handle_ = nullptr;
};

// The class of every child window of the program, and that of the main window, by which another
// program (or a test) can find it.
inline constexpr wchar_t kChildClass[] = L"TarnwellPart";
inline constexpr wchar_t kDialogClass[] = L"TarnwellDialog";
inline constexpr wchar_t kMainClass[] = L"TarnwellPocket";

// The start of the system's common controls, once per program.
void InitialiseControls();

// Draws a window within WM_PAINT.
class PaintScope {
 public:
  explicit PaintScope(HWND window) : window_(window), dc_(BeginPaint(window, &paint_)) {}
  ~PaintScope() { EndPaint(window_, &paint_); }
  PaintScope(const PaintScope&) = delete;
  PaintScope& operator=(const PaintScope&) = delete;
  HDC dc() const { return dc_; }
  Box area() const {
    return {static_cast<int>(paint_.rcPaint.left), static_cast<int>(paint_.rcPaint.top),
            static_cast<int>(paint_.rcPaint.right - paint_.rcPaint.left),
            static_cast<int>(paint_.rcPaint.bottom - paint_.rcPaint.top)};
  }

 private:
  HWND window_;
  PAINTSTRUCT paint_ = {};
  HDC dc_;
};

}  // namespace tarnwell
