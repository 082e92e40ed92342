#include "shell/start_state.h"

#include "modules/frm_modules.h"
#include "modules/profiles.h"
#include "modules/skin_tones.h"
#include "modules/white_balance.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"
#include "shell/power_toys.h"
#include "shell/profile_selection.h"
#include "shell/settings_store.h"

namespace tarnwell {
namespace {

constexpr char kDefaultName[] = "Default";
constexpr int kWhiteBalanceSlider = 2;

void TellFailure(Form1& form, const Status& status) {
  if (!status.ok()) form.platform.dialogs.Tell(form.app.title, status.message, Icon::kExclamation);
}

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
  if (!IsCamera(form.app, files, panel.camera)) panel.camera = panel.mode = kDefaultName;
  if (!IsMode(form.app, files, panel.camera, panel.mode)) panel.mode = kDefaultName;

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
  SetProfile(form.app, kDefaultName, kDefaultName);
  const Status folders = EnsureProfileFolders(form.app, files);
  TellFailure(form, SkinTonesLoad(form.app, files, form.modules.skin_tones));
  TellFailure(form, LoadLastUsedSettings(form));
  // Where the folders cannot be made the program works without them, and nobody is bothered.
  if (folders.ok()) SelectStartProfile(form);
}

}  // namespace tarnwell
