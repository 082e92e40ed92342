#include "console/panel_settings.h"

#include "modules/frm_modules.h"
#include "modules/presets.h"
#include "modules/profile_names.h"
#include "modules/profiles.h"
#include "modules/white_balance.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "platform/system.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

// The name of a camera or mode as typed, made fit for a folder; `fallback` when none was typed.
Result<std::string> ProfileName(const std::string& typed, const std::string& fallback) {
  if (typed.empty()) return fallback;
  const std::string name = CleanProfileName(typed);
  if (Status checked = CheckProfileName(name); !checked.ok()) return checked;
  return name;
}

// Selects camera and mode, makes them when they are missing, and takes over the mode's white
// balance.
Status ApplyProfile(const Settings& settings, Files& files, Module1& app, frmModules& panel) {
  const Result<std::string> camera = ProfileName(settings.camera, panel.camera);
  if (!camera.ok()) return camera.status;
  const Result<std::string> mode = ProfileName(settings.mode, panel.mode);
  if (!mode.ok()) return mode.status;
  panel.camera = *camera;
  panel.mode = *mode;

  // Every camera has a mode "Default" besides the others.
  SetProfile(app, panel.camera, "Default");
  Status made = EnsureProfileFolders(app, files);
  SetProfile(app, panel.camera, panel.mode);
  if (made.ok()) made = EnsureProfileFolders(app, files);
  // A photo can be corrected where no camera tree can be made, as long as none is asked for.
  const bool chosen = !settings.camera.empty() || !settings.mode.empty();
  if (!made.ok()) return chosen ? made : Status::Ok();
  return UseModeWhiteBalance(app, files, panel);
}

void ApplySingleSettings(const Settings& settings, Module1& app, frmModules& panel) {
  for (const ModuleSetting& setting : settings.modules) panel.open[setting.module] = setting.on;
  for (const SliderSetting& setting : settings.sliders) {
    SetSliderValue(panel, setting.slider, setting.value);
  }
  for (const CheckSetting& setting : settings.checks) {
    panel.checks[setting.check] = setting.checked ? "1" : "0";
  }
  if (settings.learn) panel.checks[kLearnFromSavedPhotos] = *settings.learn ? "1" : "0";
  if (settings.rotation) panel.rotation = *settings.rotation;
  if (settings.hue) MoveHueMarker(panel.hue, settings.hue->x, settings.hue->y);
  if (settings.quality) {
    panel.save_switches[kQualityAsOriginal] = !settings.quality->has_value();
    if (*settings.quality) SetSliderValue(panel, kJpegQualitySlider, **settings.quality);
  }
  panel.save_switches[kLeavePlaceOut] = settings.leave_place_out;
  app.analyze_full_source = settings.analyze_full;
  app.extended_noise = settings.extended_noise;
}

}  // namespace

Status UseProgramFolder(const std::string& named, Files& files, Module1& app) {
  const std::string folder = named.empty() ? SystemDataFolder() : files.Absolute(named);
  if (folder.empty()) {
    return Status::Error(Failure::kNotFound,
                         "This user has no data folder; please name one with --program-folder.");
  }
  SetProgramFolder(app, folder, "tarnwell-pocket");
  return Status::Ok();
}

Status ApplySettings(const Settings& settings, Platform& platform, Module1& app,
                     frmModules& panel) {
  if (Status applied = ApplyProfile(settings, platform.files, app, panel); !applied.ok()) {
    return applied;
  }
  if (!settings.preset.empty()) {
    const Status loaded = PresetLoad(app, platform, panel, settings.preset);
    if (!loaded.ok()) return loaded;
  }
  if (settings.white) {
    panel.white_balance_mode = WhiteBalanceMode::kPickedPixel;
    SetPickedWhite(panel, *settings.white);
  }
  if (!settings.white_file.empty()) {
    panel.white_balance_mode = WhiteBalanceMode::kCustomFile;
    panel.custom_white_file = platform.files.Absolute(settings.white_file);
    const Status read = UseWhiteBalanceFile(platform.files, panel, panel.custom_white_file);
    if (!read.ok()) return read;
  }
  ApplySingleSettings(settings, app, panel);
  return Status::Ok();
}

}  // namespace tarnwell
