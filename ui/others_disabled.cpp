#include "ui/others_disabled.h"

namespace tarnwell {

OthersDisabled::OthersDisabled(HWND kept) : kept_(kept) {
  if (const HWND owner = GetWindow(kept, GW_OWNER)) Disable(owner);
  EnumThreadWindows(GetCurrentThreadId(), DisableVisible, reinterpret_cast<LPARAM>(this));
}

OthersDisabled::~OthersDisabled() {
  for (const HWND window : disabled_) EnableWindow(window, TRUE);
}

void OthersDisabled::Disable(HWND window) {
  if (!IsWindowEnabled(window)) return;
  EnableWindow(window, FALSE);
  disabled_.push_back(window);
}

BOOL CALLBACK OthersDisabled::DisableVisible(HWND window, LPARAM self) {
  auto* others = reinterpret_cast<OthersDisabled*>(self);
  if (window != others->kept_ && IsWindowVisible(window)) others->Disable(window);
  return TRUE;
}

}  // namespace tarnwell
