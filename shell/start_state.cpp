#include "shell/start_state.h"

#include "modules/frm_modules.h"
#include "modules/profiles.h"
#include "modules/skin_tones.h"
#include "modules/white_balance.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/main_window.h"
#include "shell/module1.h"
#include "shell/power_toys.h"
#include "shell/profile_selection.h"
#include "shell/settings_store.h"
#include "shell/tell.h"
#include "shell/tips.h"

namespace tarnwell {
namespace {

// Puts a reference in force that does not come from the mode's file. False when it is gone.
bool TakeOwnReference(Form1& form, WhiteBalanceMode mode) {
  frmModules& panel = form.modules;
  Files& files = form.platform.files;
  if (mode == WhiteBalanceMode::kPickedPixel && panel.picked_white) {
    SetPickedWhite(panel, *panel.picked_white);
    return true;
  }
  if (!files.FileExists(panel.custom_white_file)) panel.custom_white_file.clear();
  if (mode != WhiteBalanceMode::kCustomFile || panel.custom_white_file.empty()) return false;
  const Status read = UseWhiteBalanceFile(files, panel, panel.custom_white_file);
  TellFailure(form, read);
  return read.ok();
}

}  // namespace

void SelectStartProfile(Form1& form) {
  frmModules& panel = form.modules;
  Files& files = form.platform.files;
  if (!IsCamera(form.app, files, panel.camera)) panel.camera = panel.mode = kDefaultProfile;
  if (!IsMode(form.app, files, panel.camera, panel.mode)) panel.mode = kDefaultProfile;

  // Selecting a mode selects its own white balance.
  const WhiteBalanceMode mode = panel.white_balance_mode;
  const Slider strength = panel.sliders[kWhiteBalanceSlider];
  SelectCameraAndMode(form, panel.camera, panel.mode);
  if (!TakeOwnReference(form, mode)) return;
  panel.white_balance_mode = mode;
  panel.sliders[kWhiteBalanceSlider] = strength;
}

void LoadStartState(Form1& form) {
  Files& files = form.platform.files;
  TellFailure(form, LoadPowerToys(form.app, files));
  SetProfile(form.app, kDefaultProfile, kDefaultProfile);
  const Status folders = EnsureProfileFolders(form.app, files);
  TellFailure(form, SkinTonesLoad(form.app, files, form.modules.skin_tones));
  TellFailure(form, LoadLastUsedSettings(form));
  // Where the folders cannot be made the program works without them, and nobody is bothered.
  if (folders.ok()) SelectStartProfile(form);
}

void LoadWindowState(MainWindow& window) {
  LoadStartState(window.form);
  ReadTips(window.tips, window.form.memory.tips_setting, window.form.memory.hidden_tips);
}

}  // namespace tarnwell
