#include "modules/open_mode.h"

#include "modules/frm_modules.h"
#include "platform/events.h"
#include "platform/platform.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

// In this order.
constexpr int kResetAtOpening[] = {
    kSmartPhotoCorrection, kSmartWhiteBalance,   kAdjustBrightness,
    kAdjustContrast,       kAdjustSaturation,    kAdjustHue,
    kNoiseReduction,       kDeadPixelCorrection, kRotation,
    kAdjustFocus,          kColorRotation,
};

// Rotation and the modules after it stay as they are, on purpose.
constexpr int kLastMinimized = kDeadPixelCorrection;

void ResetWithoutAsking(Module1& app, Platform& platform, frmModules& panel) {
  const bool confirm_reset = app.confirm_reset;
  app.confirm_reset = false;
  for (int module : kResetAtOpening) {
    PicDefault_Click(app, platform, panel, module);
    platform.events.Run();
  }
  app.confirm_reset = confirm_reset;
}

void MinimizeModules(PendingEvents& events, frmModules& panel) {
  for (int module = 0; module <= kLastMinimized; ++module) {
    if (module != kSmartPhotoCorrection && panel.IsOpen(module)) {
      PicExpand_Click(panel, module, events);
    }
  }
}

}  // namespace

frmOpenMode::frmOpenMode(const Module1& app) : selected(app.open_mode) {}

void frmOpenMode::OkClicked(Module1& app) const { app.open_mode = selected; }

void ResetAll(Module1& app, Platform& platform, frmModules& panel) {
  if (app.open_mode == kLeaveAll) return;
  ResetWithoutAsking(app, platform, panel);
  if (app.open_mode == kResetOnly) return;
  MinimizeModules(platform.events, panel);
}

}  // namespace tarnwell
