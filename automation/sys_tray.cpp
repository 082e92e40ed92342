#include "automation/sys_tray.h"

namespace tarnwell {

std::string TrayTip(TrayState state) {
  switch (state) {
    case TrayState::kOff:
      return "Tarnwell Pocket";
    case TrayState::kIdle:
      return "Automated Mode Running (Idle)";
    case TrayState::kProcessing:
      return "Automated Mode Running\r\nProcessing Images...";
    case TrayState::kWorking:
      return "Working...";
  }
  return {};
}

void SetTrayIcon(SysTray& icon, TrayPicture picture) {
  if (icon.picture == picture) return;
  icon.tray.SetIcon(picture);
  icon.picture = picture;
}

void SetTrayState(SysTray& icon, TrayState state) {
  icon.tray.SetTip(TrayTip(state));
  icon.state = state;
}

void RemoveTrayIcon(SysTray& icon) {
  if (!icon.picture) return;
  icon.tray.Remove();
  icon.picture.reset();
  icon.state.reset();
}

}  // namespace tarnwell
