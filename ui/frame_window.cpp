#include "ui/frame_window.h"

#include <algorithm>

#include "ui/window_place.h"

namespace tarnwell {
namespace {

BOOL CALLBACK GiveFont(HWND child, LPARAM font) {
  wchar_t name[16] = {};
  GetClassNameW(child, name, 16);
  const bool system = lstrcmpiW(name, L"Edit") == 0 || lstrcmpiW(name, L"ListBox") == 0;
  if (system) SendMessageW(child, WM_SETFONT, font, TRUE);
  return TRUE;
}

}  // namespace

FrameWindow::~FrameWindow() {
  Destroy();
  if (field_brush_) DeleteObject(field_brush_);
}

bool FrameWindow::MakeTop(const wchar_t* class_name, const std::wstring& title, DWORD style,
                          HWND owner, int width, int height) {
  // It comes up on its owner's screen, which may have another scale than the first one.
  if (owner) look_.Rescale(ScaleOf(owner));
  const RECT work = WorkArea(owner);
  const SIZE frame = FrameWithin(work, {Px(width), Px(height)}, style, look_.scale);
  const Box box = Centred(ToBox(work), frame.cx, frame.cy);
  if (!Make(class_name, title, style, WS_EX_CONTROLPARENT, owner, box)) return false;
  ThemeTitleBar(handle(), look_.theme);
  return true;
}

bool FrameWindow::MakeDialog(const std::wstring& title, HWND owner, int width, int height) {
  return MakeTop(kDialogClass, title, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN, owner,
                 width, height);
}

void FrameWindow::ResizeClient(int width, int height) {
  const auto style = static_cast<DWORD>(GetWindowLongW(handle(), GWL_STYLE));
  const SIZE frame = FrameWithin(WorkArea(handle()), {Px(width), Px(height)}, style, look_.scale);
  SetWindowPos(handle(), nullptr, 0, 0, frame.cx, frame.cy,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

RECT FrameWindow::OwnerRect() const {
  RECT rect = WorkArea(handle());
  const HWND owner = GetWindow(handle(), GW_OWNER);
  if (owner && IsWindowVisible(owner)) GetWindowRect(owner, &rect);
  return rect;
}

// In the middle of `around`, on the screen; `how` is an SW_ constant.
void FrameWindow::ShowWithin(RECT around, int how) {
  RECT own = {};
  GetWindowRect(handle(), &own);
  const RECT work = WorkArea(handle());
  const Box box = Centred(ToBox(around), own.right - own.left, own.bottom - own.top);
  const int x = std::max<int>(work.left, std::min<int>(box.x, work.right - box.width));
  const int y = std::max<int>(work.top, std::min<int>(box.y, work.bottom - box.height));
  SetWindowPos(handle(), nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  ShowWindow(handle(), how);
}

void FrameWindow::ShowCentred() { ShowWithin(OwnerRect(), SW_SHOW); }

void FrameWindow::ShowAtRight() {
  RECT own = {}, around = OwnerRect();
  GetWindowRect(handle(), &own);
  around.left = std::max<LONG>(around.left, around.right - (own.right - own.left) - 2 * Px(kGrid));
  ShowWithin(around, SW_SHOWNA);
}

void FrameWindow::FillHeight() {
  const RECT work = WorkArea(handle());
  RECT own = {};
  GetWindowRect(handle(), &own);
  Place(ToBox({own.left, work.top, own.right, work.bottom}));
}

void FrameWindow::ShowFocus(bool show) {
  if (look_.show_focus == show) return;
  look_.show_focus = show;
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void FrameWindow::Dress(HWND control) {
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(look_.fonts.Get(Face::kBody)), TRUE);
}

void FrameWindow::PaintClient(Painter& painter, const Box& client) {
  painter.Fill(client, theme().page);
}

void FrameWindow::PaintWithFoot(Painter& painter, const Box& client) {
  painter.Fill(client, theme().page);
  const int foot = client.height - Px(kFootHeight);
  painter.Fill({0, foot, client.width, Px(kFootHeight)}, theme().card);
  painter.Fill({0, foot, client.width, 1}, theme().border);
}

LRESULT FrameWindow::FieldColours(HDC dc) {
  if (field_brush_) DeleteObject(field_brush_);
  field_brush_ = CreateSolidBrush(ToColorRef(theme().card));
  SetTextColor(dc, ToColorRef(theme().text));
  SetBkColor(dc, ToColorRef(theme().card));
  return reinterpret_cast<LRESULT>(field_brush_);
}

void FrameWindow::Rescale(Scale scale, const RECT* suggested) {
  look_.Rescale(scale);
  EnumChildWindows(handle(), GiveFont, reinterpret_cast<LPARAM>(look_.fonts.Get(Face::kBody)));
  if (suggested) {
    SetWindowPos(handle(), nullptr, suggested->left, suggested->top,
                 suggested->right - suggested->left, suggested->bottom - suggested->top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  }
  LayOut(Client());
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void FrameWindow::KeepFocus() {
  const HWND focus = GetFocus();
  if (focus && IsChild(handle(), focus)) focus_ = focus;
}

// The system gives the focus to the window itself, where no key would do anything.
void FrameWindow::GiveFocusBack() {
  const bool usable =
      focus_ && IsChild(handle(), focus_) && IsWindowVisible(focus_) && IsWindowEnabled(focus_);
  const HWND focus = usable ? focus_ : GetNextDlgTabItem(handle(), nullptr, FALSE);
  if (focus) SetFocus(focus);
}

LRESULT FrameWindow::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_SIZE:
      if (w != SIZE_MINIMIZED) LayOut(Client());
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      const PaintScope paint(handle());
      Painter painter(paint.dc(), paint.area(), look_);
      PaintClient(painter, Client());
      return 0;
    }
    case WM_ACTIVATE:
      if (LOWORD(w) == WA_INACTIVE) KeepFocus();
      if (LOWORD(w) != WA_INACTIVE && HIWORD(w) == 0) GiveFocusBack();
      return 0;
    case WM_SETFOCUS:
      GiveFocusBack();
      return 0;
    case WM_DPICHANGED:
      Rescale({static_cast<int>(LOWORD(w))}, reinterpret_cast<const RECT*>(l));
      return 0;
    case WM_SETTINGCHANGE:
      look_.ReadTheme();
      ThemeTitleBar(handle(), look_.theme);
      RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
      return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC:
      return FieldColours(reinterpret_cast<HDC>(w));
    case WM_COMMAND:
      if (HIWORD(w) == 0 && LOWORD(w) == IDOK) OnConfirm();
      if (HIWORD(w) == 0 && LOWORD(w) == IDCANCEL) OnDismiss();
      return 0;
    case WM_CLOSE:
      OnDismiss();
      return 0;
  }
  return Window::Handle(message, w, l);
}

}  // namespace tarnwell
