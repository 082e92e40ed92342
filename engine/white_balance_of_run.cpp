#include "engine/white_balance_of_run.h"

#include "engine/run_parameters.h"
#include "modules/frm_modules.h"
#include "modules/white_balance_file.h"
#include "platform/files.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

WhiteBalance FromColor(const Rgb& reference, int strength) {
  return {WhiteBalanceOffsets(reference, strength), std::nullopt};
}

WhiteBalance FromFile(const Module1& app, Files& files, const std::string& path, int strength) {
  const auto setting = ReadWhiteBalanceFile(files, path);
  if (setting.ok()) return FromColor(setting->colour, strength);
  return {std::nullopt, Message{app.title, setting.status.message, Icon::kExclamation}};
}

WhiteBalance FromModeFolder(const Module1& app, Files& files, int strength) {
  const std::string path = app.mode_folder + kModeWhiteBalanceName;
  if (files.FileExists(path)) return FromFile(app, files, path, strength);
  return {std::nullopt,
          Message{app.title,
                  app.title +
                      " could not find any saved white balance setting for this camera and mode.",
                  Icon::kInformation}};
}

}  // namespace

WhiteBalance WhiteBalanceOfRun(const Module1& app, Files& files, const frmModules& panel) {
  if (!panel.IsOpen(kSmartWhiteBalance)) return {};
  const int strength = panel.Value(kWhiteBalanceSlider).value_or(0);
  if (strength <= 0) return {};
  switch (panel.white_balance_mode) {
    case WhiteBalanceMode::kModeDefault:
      return FromModeFolder(app, files, strength);
    case WhiteBalanceMode::kPickedPixel:
      return FromColor(panel.picked_white.value_or(panel.lblWhiteClr), strength);
    case WhiteBalanceMode::kCustomFile:
      return FromFile(app, files, panel.custom_white_file, strength);
  }
  return {};
}

}  // namespace tarnwell
