#include "shell/menu_click.h"

#include "automation/render_directory.h"
#include "deadpixels/dead_pixel_reset.h"
#include "engine/learning_store.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "shell/dispatch.h"
#include "shell/form1.h"
#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/menus.h"
#include "shell/module1.h"
#include "shell/power_toys.h"
#include "shell/save_as.h"
#include "shell/tell.h"
#include "shell/tips.h"
#include "shell/tool_button.h"

namespace tarnwell {
namespace {

void RunFileRow(MainWindow& window, int row) {
  switch (row) {
    case 0:
      return PressToolButton(window, kOpenButton);
    case 1:
      return PressToolButton(window, kSaveButton);
    case 2:
      return TellFailure(window.form, SaveAs(window.form));
    case 4:
      return PressToolButton(window, kRestoreButton);
  }
}

void RunEditRow(MainWindow& window, int row) {
  switch (row) {
    case 0:
      return PressToolButton(window, kCopySourceButton);
    case 1:
      return PressToolButton(window, kPasteSourceButton);
    case 3:
      return PressToolButton(window, kCopyThumbButton);
  }
}

void RunOptionsRow(MainWindow& window, int row) {
  Module1& app = window.form.app;
  switch (row) {
    case 0:
      return PressToolButton(window, kModulesButton);
    case 1:
      app.auto_preview = !app.auto_preview;
      return;
    case 2:
      return PressToolButton(window, kQuickLaunchButton);
    case 3:
      return window.view.ShowOpenMode();
    case 4:
      RestoreAllTips(window.tips);
      window.form.platform.dialogs.Tell(
          {app.title, "All tips will now be shown again.", Icon::kInformation});
      return;
  }
}

// A refresh clears the status, which tells how far the run is.
void CorrectDirectory(MainWindow& window) {
  std::string status;
  const auto show = [&] {
    window.view.Refresh();
    window.view.ShowStatus(status);
  };
  Command1_Click(window.form, {.show_status =
                                   [&](const std::string& line) {
                                     status = line;
                                     show();
                                   },
                               .show_photo = show});
}

void RunToolsRow(MainWindow& window, int row) {
  Form1& form = window.form;
  switch (row) {
    case 0:
      form.app.analyze_full_source = false;
      return;
    case 1:
      form.app.analyze_full_source = true;
      return;
    case 3:
      form.app.extended_noise = !form.app.extended_noise;
      return;
    case 5:
      return ResetLearningSystem(form.app, form.platform);
    case 6:
      return ResetDeadPixelSystem(form.app, form.platform);
    case 8:
      return CorrectDirectory(window);
    case 10:
      if (window.automated_mode) return window.view.EndAutomatedMode();
      return PressToolButton(window, kAutomatedModeButton);
    case 11:
      return PressToolButton(window, kAutomatedSetupButton);
  }
}

void RunHelpRow(MainWindow& window, int row) {
  switch (row) {
    case 0:
      return PressToolButton(window, kHelpButton);
    case 1:
      return PressToolButton(window, kWebPageButton);
    case 3:
      return PressToolButton(window, kAboutButton);
  }
}

}  // namespace

void RunMenuRow(MainWindow& window, int menu, int row) {
  if (!IsRowEnabled(window.form, menu, row)) return;
  switch (menu) {
    case kFileMenu:
      RunFileRow(window, row);
      break;
    case kEditMenu:
      RunEditRow(window, row);
      break;
    case kOptionsMenu:
      RunOptionsRow(window, row);
      break;
    case kToolsMenu:
      RunToolsRow(window, row);
      break;
    case kHelpMenu:
      RunHelpRow(window, row);
      break;
  }
}

void MenuClick(MainWindow& window, int menu, int row) {
  if (IsOccupied(window) || !IsRowEnabled(window.form, menu, row)) return;
  const Occupied occupied(window);
  TellLackOfMemory(window.form, [&] { RunMenuRow(window, menu, row); });
  window.view.Refresh();
}

bool PressShortcut(MainWindow& window, std::string_view shortcut) {
  if (shortcut == "ALT+M") {
    TurnPowerToysOn(window.form.app, window.form.platform);
    return true;
  }
  const auto position = RowOfShortcut(shortcut);
  if (position) MenuClick(window, position->menu, position->row);
  return position.has_value();
}

}  // namespace tarnwell
