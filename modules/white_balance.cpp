#include "modules/white_balance.h"

#include <algorithm>

#include "modules/white_balance_file.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

void TellFailure(const Module1& app, Platform& platform, const Status& status) {
  if (!status.ok()) platform.dialogs.Tell({app.title, status.message, Icon::kInformation});
}

std::string ModeFile(const Module1& app) { return app.mode_folder + kModeWhiteBalanceName; }

}  // namespace

void picMode_Click(Module1& app, Platform& platform, frmModules& panel, WhiteBalanceMode mode) {
  panel.white_balance_mode = mode;
  switch (mode) {
    case WhiteBalanceMode::kModeDefault:
      TellFailure(app, platform, UseModeWhiteBalance(app, platform.files, panel));
      return;
    case WhiteBalanceMode::kPickedPixel:
      panel.white_swatch_visible = panel.picked_white.has_value();
      if (panel.picked_white) panel.lblWhiteClr = *panel.picked_white;
      panel.ShowZoom(ZoomMode::kPickWhite);
      return;
    case WhiteBalanceMode::kCustomFile:
      if (panel.custom_white_file.empty()) OpenWhiteBalance(app, platform, panel);
      return;
  }
}

Status UseModeWhiteBalance(const Module1& app, Files& files, frmModules& panel) {
  panel.white_balance_mode = WhiteBalanceMode::kModeDefault;
  panel.white_swatch_visible = false;
  const std::string path = ModeFile(app);
  Status used = UseWhiteBalanceFile(files, panel, path);
  // Only a file that is known to be missing is made: one that cannot be looked at may be somebody's
  // saved reference.
  if (used.failure != Failure::kNotFound) return used;
  if (Status made = WriteWhiteBalanceFile(files, path, WhiteBalanceSetting()); !made.ok()) {
    return made;
  }
  return UseWhiteBalanceFile(files, panel, path);
}

Status UseWhiteBalanceFile(Files& files, frmModules& panel, const std::string& path) {
  const Result<WhiteBalanceSetting> setting = ReadWhiteBalanceFile(files, path);
  if (!setting.ok()) return setting.status;
  CalcSlidVal(panel, kWhiteBalanceSlider, setting->slider_position);
  panel.lblWhiteClr = setting->colour;
  panel.white_swatch_visible = true;
  return Status::Ok();
}

void OpenWhiteBalance(Module1& app, Platform& platform, frmModules& panel) {
  const auto path = platform.dialogs.ChooseOpenFile("Open White Balance", kWhiteBalanceFilter);
  if (path && platform.files.FileExists(*path)) {
    const std::string chosen = platform.files.Absolute(*path);
    const Status used = UseWhiteBalanceFile(platform.files, panel, chosen);
    if (used.ok()) {
      panel.custom_white_file = chosen;
      return;
    }
    TellFailure(app, platform, used);
  }
  // The file before stays in use; without one, the mode's own is.
  if (panel.custom_white_file.empty()) {
    picMode_Click(app, platform, panel, WhiteBalanceMode::kModeDefault);
  }
}

void WhiteBalncOk(frmWhiteBalnc& window) {
  window.save_as_default = window.default_chosen;
  window.cancelled = false;
}

void WhiteBalncCancel(frmWhiteBalnc& window) { window.cancelled = true; }

void SaveWhiteBalanceSetting(Module1& app, Platform& platform, const frmModules& panel,
                             const frmWhiteBalnc& answer) {
  if (answer.cancelled) return;
  std::string path = ModeFile(app);
  if (!answer.save_as_default) {
    path = platform.dialogs
               .ChooseSaveFile("Save White Balance Setting", kWhiteBalanceFilter, TakenNames::kAsk)
               .value_or("");
    if (path.empty()) return;
  }
  const WhiteBalanceSetting setting{panel.lblWhiteClr, panel.sliders[kWhiteBalanceSlider].position};
  TellFailure(app, platform, WriteWhiteBalanceFile(platform.files, path, setting));
}

ModeLabel lblModeSet(const frmModules& panel, int index) {
  if (index == 0) {
    const bool visible = panel.white_balance_mode == WhiteBalanceMode::kPickedPixel;
    if (!panel.picked_white) return {visible, "~"};
    const Rgb& white = *panel.picked_white;
    return {visible, std::to_string(white.red) + "," + std::to_string(white.green) + "," +
                         std::to_string(white.blue)};
  }
  const std::string& path = panel.custom_white_file;
  return {panel.white_balance_mode == WhiteBalanceMode::kCustomFile,
          path.substr(path.rfind('\\') + 1)};
}

Rgb GetWhiteClr(const PixelView& original, int x, int y) {
  if (original.empty()) return {};
  const int centre_x = std::clamp(x, 0, original.width - 1);
  const int centre_y = std::clamp(y, 0, original.height - 1);
  Rgb sum;
  for (int dy = -1; dy <= 1; ++dy) {
    for (int dx = -1; dx <= 1; ++dx) {
      const std::uint8_t* pixel = original.at(std::clamp(centre_x + dx, 0, original.width - 1),
                                              std::clamp(centre_y + dy, 0, original.height - 1));
      sum.red += pixel[kRed];
      sum.green += pixel[kGreen];
      sum.blue += pixel[kBlue];
    }
  }
  return {sum.red / 9, sum.green / 9, sum.blue / 9};
}

void SetPickedWhite(frmModules& panel, const Rgb& colour) {
  panel.picked_white = colour;
  panel.lblWhiteClr = colour;
  panel.white_swatch_visible = true;
}

}  // namespace tarnwell
