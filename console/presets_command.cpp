#include "console/presets_command.h"

#include <string>

#include "console/console_dialogs.h"
#include "console/console_host.h"
#include "console/console_window.h"
#include "console/panel_settings.h"
#include "console/shown_text.h"
#include "modules/presets.h"

namespace tarnwell {
namespace {

// The words of `settings` whose effect a preset does not carry.
std::string WordsNotKept(const Settings& settings) {
  std::string words;
  const auto add = [&words](bool given, const std::string& word) {
    if (given) words += (words.empty() ? "" : ", ") + word;
  };
  for (const CheckSetting& setting : settings.checks) {
    add(!PresetKeeps(setting.check), "--check " + std::to_string(setting.check));
  }
  if (settings.learn) add(true, *settings.learn ? "--learn" : "--no-learn");
  add(settings.rotation.has_value(), "--rotation");
  add(settings.white.has_value(), "--white");
  add(settings.quality && !settings.quality->has_value(), "--quality original");
  add(settings.leave_place_out, "--strip-place");
  add(settings.analyze_full, "--analyze");
  add(settings.extended_noise, "--extended-noise");
  return words;
}

}  // namespace

int RunPresetsCommand(const PresetsOptions& options, ConsoleHost& host) {
  ConsoleSystem system;
  ConsoleDialogs dialogs(host.err, /*save_thumbnail=*/false);
  ConsoleWindow window(StartingPoint(), system, dialogs, host.interrupted, 1);
  Status status = UseProgramFolder(options.settings.program_folder, *system.files, window.app);
  if (status.ok()) {
    status = ApplySettings(options.settings, window.platform, window.app, window.modules);
  }
  if (!status.ok()) {
    TellLine(host.err, status.message);
    return CodeOfRefusal(status);
  }
  const std::string path = system.files->Absolute(options.file);
  status = WritePreset(window.app, *system.files, window.modules, path);
  if (!status.ok()) {
    TellLine(host.err, status.message);
    return kSomePhotoFailed;
  }
  const std::string not_kept = WordsNotKept(options.settings);
  if (!not_kept.empty()) {
    TellLine(host.err, system.files->Display(path) + ": a preset does not keep " + not_kept);
  }
  return kDone;
}

}  // namespace tarnwell
