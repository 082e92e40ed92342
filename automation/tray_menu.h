#pragma once

#include <array>
#include <string_view>

namespace tarnwell {

enum TrayRow : int {
  kTrayAutomatedMode = 0,
  kTraySetup = 1,
  kTrayStatus = 3,
  kTrayExit = 5,
};

// The rows mFile(0) to mFile(5) of the menu that a right click on the tray icon opens. "-" is a
// separator.
inline constexpr std::array<std::string_view, 6> kTrayMenu = {
    "Fully Automated Mode", "Setup Automated Mode", "-", "Status", "-", "Exit",
};

}  // namespace tarnwell
