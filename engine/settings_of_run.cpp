#include "engine/settings_of_run.h"

#include "shell/module1.h"

namespace tarnwell {

SettingsOfRun CurrentSettings(const Module1& app, const frmModules& panel) {
  SettingsOfRun settings = {
      .parameters = CollectParameters(panel, /*preview=*/false, 1, app.extended_noise),
      .analyzes_full_source = app.analyze_full_source,
      .white = {}};
  if (!panel.IsOpen(kSmartWhiteBalance)) return settings;
  WantedWhite& white = settings.white.emplace();
  white.mode = panel.white_balance_mode;
  white.strength = panel.Value(kWhiteBalanceSlider).value_or(0);
  if (white.mode == WhiteBalanceMode::kModeDefault) white.file = app.mode_folder;
  if (white.mode == WhiteBalanceMode::kCustomFile) white.file = panel.custom_white_file;
  if (white.mode == WhiteBalanceMode::kPickedPixel) {
    white.picked = panel.picked_white.value_or(panel.lblWhiteClr);
  }
  return settings;
}

}  // namespace tarnwell
