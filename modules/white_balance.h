#pragma once

#include <string>

#include "imaging/pixel_array.h"
#include "modules/frm_modules.h"
#include "platform/status.h"

namespace tarnwell {

class Files;
struct Module1;
struct Platform;

// Where the white reference comes from: selecting one of the three modes, and the module's commands
// "Open White Balance" and "Save White Balance Setting". All of them tell the user what went wrong
// in a message box; the ones that return a status are for callers that report in their own way.

// Selects a white balance mode. The default of camera and mode is read at once (and made when the
// mode has none yet); picking opens the zoom window through panel.ShowZoom; a custom file is asked
// for when none has been chosen yet.
void picMode_Click(Module1& app, Platform& platform, frmModules& panel, WhiteBalanceMode mode);

// Mode 0 without messages: makes "White Balance.wbs" of the current mode folder when it is missing
// and reads it. After a failure the mode is selected and the reference is as it was.
Status UseModeWhiteBalance(const Module1& app, Files& files, frmModules& panel);

// Reads a white balance file (or a preset's first four lines) into colour swatch and slider. A file
// that cannot be read changes nothing.
Status UseWhiteBalanceFile(Files& files, frmModules& panel, const std::string& path);

// "Open White Balance". Backing out, or naming a file that does not exist, keeps the custom file
// that is in use; where there is none, mode 0 is selected.
void OpenWhiteBalance(Module1& app, Platform& platform, frmModules& panel);

// The window that asks where the current white balance is to be saved.
struct frmWhiteBalnc {
  static constexpr const char* kQuestion = "Save current white balance settings as:";
  static constexpr const char* kCustomChoice = "A custom white balance setting.";
  static constexpr const char* kDefaultChoice = "Default for this Camera and Mode";

  bool default_chosen = false;  // which choice is marked in the window

  // The answer.
  bool save_as_default = false;
  bool cancelled = true;
};
void WhiteBalncOk(frmWhiteBalnc& window);
void WhiteBalncCancel(frmWhiteBalnc& window);

// "Save White Balance Setting", with the window's answer: into a file the user names, or as the
// default of camera and mode.
void SaveWhiteBalanceSetting(Module1& app, Platform& platform, const frmModules& panel,
                             const frmWhiteBalnc& answer);

// What the labels of mode 1 (index 0) and mode 2 (index 1) show.
struct ModeLabel {
  bool visible = false;
  std::string text;
};
ModeLabel lblModeSet(const frmModules& panel, int index);

// The white colour at a position of the photo, counted from 0: the mean of the 3 x 3 pixels around
// it, each channel rounded down. Position and neighbours outside the photo count as the nearest
// pixel inside. Black when the photo is empty.
Rgb GetWhiteClr(const PixelView& original, int x, int y);

// Takes `colour` as the picked white pixel and shows it in the swatch.
void SetPickedWhite(frmModules& panel, const Rgb& colour);

}  // namespace tarnwell
