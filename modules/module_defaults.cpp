// "Default Values" of a module: everything the module holds goes back to how a new panel has it.

#include "modules/frm_modules.h"
#include "modules/white_balance.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

bool UserAgrees(const Module1& app, Dialogs& dialogs) {
  if (!app.confirm_reset) return true;
  return dialogs.Ask({app.title, "Revert all settings in this module to defaults?",
                      Icon::kQuestion}) == Answer::kYes;
}

void ResetSliders(frmModules& panel, int module) {
  for (int slider = 0; slider < kSliderCount; ++slider) {
    if (kSliders[slider].module == module) {
      CalcSlidVal(panel, slider, kSliders[slider].default_position);
    }
  }
}

void ResetChecks(frmModules& panel, int module) {
  for (int check = 0; check < kCheckCount; ++check) {
    // Using what was learnt is a standing choice: the reset at every opening of a photo must not
    // undo it.
    if (check == kUseLearntCorrections || kChecks[check].module != module) continue;
    panel.checks[check] = kChecks[check].default_checked ? "1" : "0";
  }
}

void ResetCameraAndMode(Module1& app, frmModules& panel) {
  panel.camera = "Default";
  panel.mode = "Default";
  SetProfile(app, panel.camera, panel.mode);
}

// The photo's mean colour is no setting: both swatches show it again.
void ResetHue(HuePicker& hue) {
  const Rgb mean = hue.lblHue[0];
  hue = HuePicker();
  hue.lblHue = {mean, mean};
}

}  // namespace

bool PicDefault_Click(Module1& app, Platform& platform, frmModules& panel, int index) {
  if (!UserAgrees(app, platform.dialogs)) return false;
  switch (index) {
    case kCameraAndMode:
      ResetCameraAndMode(app, panel);
      break;
    case kSmartWhiteBalance:
      // Reads the mode's file, the strength slider with it; that slider is reset after it.
      picMode_Click(app, platform, panel, WhiteBalanceMode::kModeDefault);
      break;
    case kAdjustHue:
      ResetHue(panel.hue);
      break;
    case kRotation:
      panel.rotation = 0;
      break;
    case kJpegQuality:
      panel.save_switches[kQualityAsOriginal] = false;
      break;
    case kColorRotation:
      return false;  // has no defaults: its slider survives the opening of a photo
    default:
      break;
  }
  ResetSliders(panel, index);
  ResetChecks(panel, index);
  return true;
}

}  // namespace tarnwell
