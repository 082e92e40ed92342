#pragma once

#include "ui/painter.h"
#include "ui/window.h"

namespace tarnwell {

// Of the strip for a window's buttons, at 96 dpi.
inline constexpr int kFootHeight = 7 * kGrid;

// A window with a frame: it has a look of its own, for the screen that it stands on, and keeps up
// with changes of scale and theme.
class FrameWindow : public Window {
 public:
  FrameWindow() : look_(StartScale()) {}
  ~FrameWindow() override;

  const Look& look() const { return look_; }

  // Whether focus and access keys are drawn: the keyboard was used last.
  void ShowFocus(bool show);

  // Shows a window that the user may work with in the middle of its owner, in front of all others,
  // or at its owner's right, without taking the keyboard.
  void ShowCentred();
  void ShowAtRight();

  // Makes the window as tall as its screen.
  void FillHeight();

 protected:
  // Makes the window, hidden. The size is that of the client area, at 96 dpi.
  bool MakeTop(const wchar_t* class_name, const std::wstring& title, DWORD style, HWND owner,
               int width, int height);
  // A fixed-size window of the program over `owner`.
  bool MakeDialog(const std::wstring& title, HWND owner, int width, int height);
  void ResizeClient(int width, int height);  // at 96 dpi

  // Gives a system's own control (a field, a list) this look.
  void Dress(HWND control);

  // The ground of a window with a foot for its buttons.
  void PaintWithFoot(Painter& painter, const Box& client);

  virtual void LayOut(const Box& client) = 0;
  virtual void PaintClient(Painter& painter, const Box& client);
  // Enter outside a button, and Esc or the close button.
  virtual void OnConfirm() {}
  virtual void OnDismiss() { Show(false); }

  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

  int Px(int size) const { return look_.Px(size); }
  const Theme& theme() const { return look_.theme; }

  Look look_;

 private:
  LRESULT FieldColours(HDC dc);
  void Rescale(Scale scale, const RECT* suggested);
  void ShowWithin(RECT around, int how);
  RECT OwnerRect() const;
  void KeepFocus();
  void GiveFocusBack();

  HBRUSH field_brush_ = nullptr;
  HWND focus_ = nullptr;  // what had the focus when another window came to the front
};

}  // namespace tarnwell
