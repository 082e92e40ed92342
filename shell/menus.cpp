#include "shell/menus.h"

#include "automation/tray_menu.h"
#include "shell/form1.h"
#include "shell/main_window.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

constexpr MenuRow kLine = {kSeparator};

constexpr MenuRow kFileRows[] = {
    {"Open...", "ALT+O"},
    {"Save", "ALT+S", Needs::kPhoto},
    {"Save As...", "", Needs::kPhoto},
    kLine,
    {"Restore Original Image", "ALT+R", Needs::kPhoto},
};

constexpr MenuRow kEditRows[] = {
    {"Copy Source", "ALT+C", Needs::kPhoto},
    {"Paste Source", "ALT+V"},
    kLine,
    {"Copy Thumb", "ALT+B", Needs::kPhoto},
};

// The panel's settings stay in force when its window is closed; row 0 is the way back to it.
constexpr MenuRow kOptionsRows[] = {
    {"Module Panel..."},    {"Auto-Preview Images"}, {"Add QuickLaunch Shortcut...", "ALT+Q"},
    {"Photo Open Mode..."}, {"Restore All Tips"},
};

// The line behind the power toys goes with them. The automated mode is found here as well as in the
// menu of its icon.
constexpr MenuRow kToolsRows[] = {
    {"Analyze Thumbnail", "", Needs::kNothing, true},
    {"Analyze Full Source", "", Needs::kNothing, true},
    {kSeparator, "", Needs::kNothing, true},
    {"Über Quality Noise Reduction", "", Needs::kNothing, true},
    {kSeparator, "", Needs::kNothing, true},
    {"Reset Learning System"},
    {"Reset Dead Pixel System"},
    kLine,
    {"Do Entire Directory", "ALT+D", Needs::kPhotoFile},
    kLine,
    {kTrayMenu[kTrayAutomatedMode]},
    {kTrayMenu[kTraySetup]},
};

constexpr MenuRow kHelpRows[] = {
    {"Help", "F1"},
    {"Tarnwell Pocket Online", "ALT+W"},
    kLine,
    {"About..."},
};

}  // namespace

const std::array<Menu, kMenuCount> kMenus = {{
    {"File", kFileRows},
    {"Edit", kEditRows},
    {"Options", kOptionsRows},
    {"Tools", kToolsRows},
    {"Help", kHelpRows},
}};

const MenuRow* FindRow(int menu, int row) {
  if (menu < 0 || menu >= kMenuCount) return nullptr;
  const auto& rows = kMenus[menu].rows;
  if (row < 0 || row >= static_cast<int>(rows.size())) return nullptr;
  return &rows[row];
}

bool IsRowShown(const Form1& form, int menu, int row) {
  const MenuRow* found = FindRow(menu, row);
  return found != nullptr && (!found->power_toy || form.app.power_toys);
}

bool IsRowEnabled(const Form1& form, int menu, int row) {
  const MenuRow* found = FindRow(menu, row);
  return found != nullptr && !found->IsSeparator() && IsThere(form, found->needs);
}

bool IsRowChecked(const MainWindow& window, int menu, int row) {
  const Module1& app = window.form.app;
  const RowPosition position = {menu, row};
  if (position == RowPosition{kOptionsMenu, 1}) return app.auto_preview;
  if (position == RowPosition{kToolsMenu, 0}) return !app.analyze_full_source;
  if (position == RowPosition{kToolsMenu, 1}) return app.analyze_full_source;
  if (position == RowPosition{kToolsMenu, 3}) return app.extended_noise;
  if (position == RowPosition{kToolsMenu, 10}) return window.automated_mode;
  return false;
}

std::optional<RowPosition> RowOfShortcut(std::string_view shortcut) {
  if (shortcut.empty()) return std::nullopt;
  for (int menu = 0; menu < kMenuCount; ++menu) {
    const auto& rows = kMenus[menu].rows;
    for (int row = 0; row < static_cast<int>(rows.size()); ++row) {
      if (rows[row].shortcut == shortcut) return RowPosition{menu, row};
    }
  }
  return std::nullopt;
}

bool IsThere(const Form1& form, Needs needs) {
  const bool photo = form.buffer.surfaces.picOriginal.picture != nullptr;
  switch (needs) {
    case Needs::kNothing:
      return true;
    case Needs::kPhoto:
      return photo;
    case Needs::kPhotoFile:
      return photo && !form.app.current_file.empty();
  }
  return false;
}

}  // namespace tarnwell
