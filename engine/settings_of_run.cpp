#include "engine/settings_of_run.h"

#include "modules/white_balance_file.h"
#include "shell/module1.h"

namespace tarnwell {

namespace {

std::optional<WantedWhite> WantedWhiteOf(const Module1& app, const frmModules& panel) {
  const int strength = panel.Value(kWhiteBalanceSlider).value_or(0);
  if (!panel.IsOpen(kSmartWhiteBalance) || strength <= 0) return std::nullopt;
  WantedWhite white;
  white.mode = panel.white_balance_mode;
  white.strength = strength;
  switch (white.mode) {
    case WhiteBalanceMode::kModeDefault:
      white.file = app.mode_folder + kModeWhiteBalanceName;
      break;
    case WhiteBalanceMode::kPickedPixel:
      white.picked = panel.picked_white.value_or(panel.lblWhiteClr);
      break;
    case WhiteBalanceMode::kCustomFile:
      white.file = panel.custom_white_file;
      break;
  }
  return white;
}

}  // namespace

SettingsOfRun CurrentSettings(const Module1& app, const frmModules& panel) {
  return {.parameters = CollectParameters(panel, /*preview=*/false, 1, app.extended_noise),
          .analyzes_full_source = app.analyze_full_source,
          .white = WantedWhiteOf(app, panel)};
}

}  // namespace tarnwell
