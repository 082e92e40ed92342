#include "engine/white_balance_of_run.h"

#include "engine/run_parameters.h"
#include "modules/frm_modules.h"
#include "modules/white_balance_file.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

std::optional<Rgb> ReferenceFromFile(const Module1& app, Platform& platform,
                                     const std::string& path) {
  const auto setting = ReadWhiteBalanceFile(platform.files, path);
  if (setting.ok()) return setting->colour;
  platform.dialogs.Tell({app.title, setting.status.message, Icon::kExclamation});
  return std::nullopt;
}

std::optional<Rgb> Reference(const Module1& app, Platform& platform, const frmModules& panel) {
  switch (panel.white_balance_mode) {
    case WhiteBalanceMode::kModeDefault: {
      const std::string path = app.mode_folder + kModeWhiteBalanceName;
      if (platform.files.FileExists(path)) return ReferenceFromFile(app, platform, path);
      platform.dialogs.Tell({app.title,
                             app.title +
                                 " could not find any saved white balance setting for this camera "
                                 "and mode.",
                             Icon::kInformation});
      return std::nullopt;
    }
    case WhiteBalanceMode::kPickedPixel:
      return panel.picked_white.value_or(panel.lblWhiteClr);
    case WhiteBalanceMode::kCustomFile:
      return ReferenceFromFile(app, platform, panel.custom_white_file);
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::array<double, 3>> WhiteBalanceOfRun(const Module1& app, Platform& platform,
                                                       const frmModules& panel) {
  if (!panel.IsOpen(kSmartWhiteBalance)) return std::nullopt;
  const int strength = panel.Value(kWhiteBalanceSlider).value_or(0);
  if (strength <= 0) return std::nullopt;
  const std::optional<Rgb> reference = Reference(app, platform, panel);
  if (!reference) return std::nullopt;
  return WhiteBalanceOffsets(*reference, strength);
}

}  // namespace tarnwell
