#include "shell/tool_button.h"

#include <optional>

#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "imaging/file_save.h"
#include "modules/open_mode.h"
#include "modules/presets.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "shell/clipboard_commands.h"
#include "shell/dispatch.h"
#include "shell/form1.h"
#include "shell/help.h"
#include "shell/main_view.h"
#include "shell/main_window.h"
#include "shell/module1.h"
#include "shell/quick_launch.h"
#include "shell/restore_original.h"
#include "shell/tell.h"
#include "shell/tips.h"
#include "shell/zoom_request.h"

namespace tarnwell {

const std::array<ToolButton, kToolButtonCount> kToolButtons = {{
    {"Open", "Open a photo (ALT+O)"},
    {"Save", "Save the corrected photo (ALT+S)", Needs::kPhoto},
    {"Tips", "Show the tips"},
    {"Preview", "Correct the preview", Needs::kPhoto},
    {"Adjust", "Correct the full photo", Needs::kPhoto},
    {"Zoom", "Look at the photo at full size", Needs::kPhoto},
    {"Defaults", "Set the modules as the photo open mode does"},
    {"Copy Source", "Copy the photo (ALT+C)", Needs::kPhoto},
    {"Paste Source", "Paste a picture as the photo (ALT+V)"},
    {"Copy Thumb", "Copy the preview (ALT+B)", Needs::kPhoto},
    {"Modules", "Show the module panel"},
    {"About", "About this program"},
    {"", ""},
    {"QuickLaunch", "Add a Quick Launch shortcut (ALT+Q)"},
    {"Restore", "Restore the original image (ALT+R)", Needs::kPhoto},
    {"Open Preset", "Load a preset into the modules"},
    {"Help", "Help (F1)"},
    {"Online", "Open the product's web page (ALT+W)"},
    {"Save Preset", "Save the modules as a preset"},
    {"Automated", "Start the fully automated mode"},
    {"Setup", "Set up the automated mode"},
    {"Options", "Open the options menu"},
}};

namespace {

void OpenOptionsMenu(MainWindow& window) {
  const std::optional<int> row = window.view.ChooseMenuRow(kOptionsMenu);
  if (row) RunMenuRow(window, kOptionsMenu, *row);
}

void PressDefaults(Form1& form) {
  ResetAll(form.app, form.platform, form.modules);
  if (form.app.open_mode != kLeaveAll) return;
  form.platform.dialogs.Tell(
      {form.app.title,
       "The photo open mode leaves all settings and modules as they are. You "
       "can change it in the Options menu.",
       Icon::kInformation});
}

// Buttons that work on the photo or the panel.
void PressWorkButton(MainWindow& window, int index) {
  Form1& form = window.form;
  switch (index) {
    case kOpenButton:
      return TellFailure(form, FileOpen(form, /*show_dialog=*/true));
    case kSaveButton:
      return TellFailure(form, FileSave(form, /*notify=*/false));
    case kPreviewButton:
      return TellFailure(form, AdjustPhoto(form, /*preview=*/true));
    case kAdjustButton:
      return TellFailure(form, AdjustPhoto(form, /*preview=*/false));
    case kZoomButton:
      return RequestZoom(form);
    case kDefaultsButton:
      return PressDefaults(form);
    case kCopySourceButton:
      return CopySource(form);
    case kPasteSourceButton:
      return PasteSource(form);
    case kCopyThumbButton:
      return CopyThumb(form);
    case kRestoreButton:
      return RestoreOriginalImage(form);
    case kOpenPresetButton:
      return TellFailure(form, PresetLoad(form.app, form.platform, form.modules, ""));
    case kSavePresetButton:
      return TellFailure(form, PresetSave(form.app, form.platform, form.modules));
  }
}

// Buttons that bring up a window of this program or of the system.
void PressWindowButton(MainWindow& window, int index) {
  Form1& form = window.form;
  switch (index) {
    case kTipsButton:
      return window.view.ShowTipsWindow(kStartUpTip, /*asked_for=*/true);
    case kModulesButton:
      window.view.MaximizeModules();
      return OfferTip(window, kMaximizeTip);
    case kAboutButton:
      return window.view.ShowAbout();
    case kNotImplementedButton:
      return form.platform.dialogs.Tell(
          {form.app.title, "Feature not implemented", Icon::kInformation});
    case kQuickLaunchButton:
      return OfferQuickLaunchShortcut(window);
    case kHelpButton:
      return TellFailure(form,
                         window.view.OpenHelp(HelpToOpen(form.platform.files, form.app.help_file)));
    case kWebPageButton:
      return TellFailure(form, window.view.OpenWebPage(kWebPage));
    case kAutomatedModeButton:
      return window.view.StartAutomatedMode();
    case kAutomatedSetupButton:
      return window.view.ShowAutomatedSetup();
    case kOptionsButton:
      return OpenOptionsMenu(window);
  }
}

}  // namespace

bool IsButtonEnabled(const Form1& form, int index) {
  return index >= 0 && index < kToolButtonCount && IsThere(form, kToolButtons[index].needs);
}

void PressToolButton(MainWindow& window, int index) {
  if (!IsButtonEnabled(window.form, index)) return;
  // Each of the two knows its own buttons and passes the others by.
  PressWorkButton(window, index);
  PressWindowButton(window, index);
}

void picToolBtn_Click(MainWindow& window, int index) {
  if (IsOccupied(window) || !IsButtonEnabled(window.form, index)) return;
  const Occupied occupied(window);
  TellLackOfMemory(window.form, [&] { PressToolButton(window, index); });
  window.view.Refresh();
}

}  // namespace tarnwell
