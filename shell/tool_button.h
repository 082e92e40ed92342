#pragma once

#include <array>
#include <string_view>

#include "shell/menus.h"

namespace tarnwell {

struct Form1;
struct MainWindow;

// Every command that a button, a menu row or a keyboard shortcut can press, by its fixed index.
enum ToolButtonIndex : int {
  kOpenButton = 0,
  kSaveButton = 1,
  kTipsButton = 2,
  kPreviewButton = 3,
  kAdjustButton = 4,
  kZoomButton = 5,
  kDefaultsButton = 6,
  kCopySourceButton = 7,
  kPasteSourceButton = 8,
  kCopyThumbButton = 9,
  kModulesButton = 10,
  kAboutButton = 11,
  kNotImplementedButton = 12,
  kQuickLaunchButton = 13,
  kRestoreButton = 14,
  kOpenPresetButton = 15,
  kHelpButton = 16,
  kWebPageButton = 17,
  kSavePresetButton = 18,
  kAutomatedModeButton = 19,
  kAutomatedSetupButton = 20,
  kOptionsButton = 21,
};
inline constexpr int kToolButtonCount = 22;

struct ToolButton {
  std::string_view caption;
  std::string_view tooltip;
  Needs needs = Needs::kNothing;
};
extern const std::array<ToolButton, kToolButtonCount> kToolButtons;

// The product's web page.
inline constexpr char kWebPage[] = "https://tarnwell-pocket.example/";

bool IsButtonEnabled(const Form1& form, int index);

// Presses button `index`. A button that is disabled or does not exist does nothing, and so does
// every button while a command runs. What fails is told to the user.
void picToolBtn_Click(MainWindow& window, int index);

}  // namespace tarnwell
