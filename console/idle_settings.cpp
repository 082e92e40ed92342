#include "console/idle_settings.h"

#include <algorithm>

#include "console/options.h"
#include "modules/frm_modules.h"
#include "modules/settings_in_force.h"

namespace tarnwell {

std::vector<std::string> IdleSettings(const Settings& settings, const frmModules& panel) {
  std::vector<std::string> idle;
  const auto add = [&](const std::string& word, const std::string& off) {
    const std::string sentence = word + " has no effect while " + off + " is off";
    if (std::find(idle.begin(), idle.end(), sentence) == idle.end()) idle.push_back(sentence);
  };
  const auto look = [&](bool given, const std::string& word, int module) {
    if (!given || panel.IsOpen(module) || ActsWhileClosed(module)) return;
    add(word, "module " + std::to_string(module));
  };
  for (const SliderSetting& setting : settings.sliders) {
    const std::string number = std::to_string(setting.slider);
    const int module = kSliders[setting.slider].module;
    look(true, "--slider " + number, module);
    const std::optional<Check> check = CheckBehind(setting.slider);
    if (check && panel.IsOpen(module) && !panel.IsChecked(*check)) {
      add("--slider " + number, "check option " + std::to_string(*check));
    }
  }
  for (const CheckSetting& setting : settings.checks) {
    look(true, "--check " + std::to_string(setting.check), kChecks[setting.check].module);
  }
  look(settings.white.has_value(), "--white", kSmartWhiteBalance);
  look(!settings.white_file.empty(), "--white-file", kSmartWhiteBalance);
  look(settings.rotation.has_value(), "--rotation", kRotation);
  look(settings.hue.has_value(), "--hue", kAdjustHue);
  look(settings.analyze_full, "--analyze", kSmartPhotoCorrection);
  look(settings.extended_noise, "--extended-noise", kNoiseReduction);
  return idle;
}

}  // namespace tarnwell
