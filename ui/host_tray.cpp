#include "ui/host_tray.h"

#include <shellapi.h>

#include "ui/look/icons.h"

namespace tarnwell {
namespace {

constexpr wchar_t kTrayClass[] = L"TarnwellTray";
constexpr UINT kClicked = WM_APP + 2;
constexpr UINT kIconId = 1;
constexpr int kIconSide = 16;

// The record without the fields that later systems added at its end: what every system takes.
constexpr DWORD kRecordSize = NOTIFYICONDATAA_V3_SIZE;
static_assert(sizeof(void*) != 4 || kRecordSize == 504);
static_assert(sizeof(NOTIFYICONDATAA::szTip) == 128);

NOTIFYICONDATAA RecordFor(HWND window) {
  NOTIFYICONDATAA record = {};
  record.cbSize = kRecordSize;
  record.hWnd = window;
  record.uID = kIconId;
  return record;
}

HICON MakeIcon(int side, TrayPicture picture) {
  const PixelArray pixels =
      WithOpacity(side, picture == TrayPicture::kBusy ? DrawBusyIcon : DrawProgramIcon);
  // The mask counts only where opacity is unknown; all of it says "opaque".
  const std::vector<std::uint8_t> mask(static_cast<std::size_t>((side + 15) / 16 * 2) * side);
  ICONINFO info = {};
  info.fIcon = TRUE;
  info.hbmMask = CreateBitmap(side, side, 1, 1, mask.data());
  info.hbmColor = CreateBitmap(side, side, 1, 32, pixels.view().data);
  const HICON icon = CreateIconIndirect(&info);
  DeleteObject(info.hbmMask);
  DeleteObject(info.hbmColor);
  return icon;
}

}  // namespace

HostTray::~HostTray() { Remove(); }

void HostTray::Create() {
  taskbar_created_ = RegisterWindowMessageW(L"TaskbarCreated");
  // A window of its own at the top: the taskbar tells nobody else that it is there again.
  Make(kTrayClass, L"Tarnwell Pocket", WS_POPUP, WS_EX_TOOLWINDOW, nullptr, {});
}

const Look& HostTray::FreshLook() {
  look_.ReadTheme();
  return look_;
}

void HostTray::SetIcon(TrayPicture picture) {
  picture_ = picture;
  icon_.reset(MakeIcon(look_.Px(kIconSide), picture));
  Send();
}

void HostTray::SetTip(const std::string& tip) {
  tip_ = tip;
  Send();
}

void HostTray::Remove() {
  removed_ = true;
  if (!shown_) return;
  NOTIFYICONDATAA record = RecordFor(handle());
  Shell_NotifyIconA(NIM_DELETE, &record);
  shown_ = false;
}

// The whole icon each time: adding it and changing it are one.
void HostTray::Send() {
  if (removed_ || !picture_ || !handle()) return;
  NOTIFYICONDATAA record = RecordFor(handle());
  record.uFlags = NIF_ICON | NIF_TIP | NIF_MESSAGE;
  record.uCallbackMessage = kClicked;
  record.hIcon = icon_.get();
  lstrcpynA(record.szTip, tip_.c_str(), sizeof(record.szTip));
  if (shown_) {
    Shell_NotifyIconA(NIM_MODIFY, &record);
    return;
  }
  shown_ = Shell_NotifyIconA(NIM_ADD, &record);
  record.uVersion = NOTIFYICON_VERSION;  // clicks of the keyboard are told, too
  if (shown_) Shell_NotifyIconA(NIM_SETVERSION, &record);
}

void HostTray::Clicked(UINT event) {
  switch (event) {
    case WM_CONTEXTMENU: {
      POINT at = {};
      GetCursorPos(&at);
      // Without this the menu would stay when the user clicks elsewhere.
      SetForegroundWindow(handle());
      menu_wanted(at);
      PostMessageW(handle(), WM_NULL, 0, 0);
      return;
    }
    case NIN_SELECT:
    case NIN_KEYSELECT:
      return selected();
    case WM_LBUTTONDBLCLK:
      return double_clicked();
  }
}

LRESULT HostTray::Handle(UINT message, WPARAM w, LPARAM l) {
  if (message == taskbar_created_ && taskbar_created_ != 0) {
    shown_ = false;
    Send();
    return 0;
  }
  if (message == kClicked) {
    Clicked(LOWORD(l));
    return 0;
  }
  return Window::Handle(message, w, l);
}

}  // namespace tarnwell
