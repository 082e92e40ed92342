#pragma once

#include <optional>
#include <string>

#include "platform/tray.h"

namespace tarnwell {

enum class TrayState : int { kOff = -1, kIdle = 0, kProcessing = 1, kWorking = 2 };

std::string TrayTip(TrayState state);

// The tray icon as it was last shown; nothing before the first time and after its removal.
struct SysTray {
  Tray& tray;
  std::optional<TrayPicture> picture = std::nullopt;
  std::optional<TrayState> state = std::nullopt;
};

// Changes the picture, when it is another one than the one shown.
void SetTrayIcon(SysTray& icon, TrayPicture picture);
void SetTrayState(SysTray& icon, TrayState state);
void RemoveTrayIcon(SysTray& icon);

}  // namespace tarnwell
