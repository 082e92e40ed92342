#include "automation/auto_setup.h"
#include "engine/learning_data.h"
#include "fuzz/seeds.h"
#include "modules/presets.h"
#include "modules/skin_tones.h"
#include "modules/white_balance_file.h"
#include "shell/module1.h"
#include "shell/photo_queue.h"
#include "shell/power_toys.h"
#include "shell/settings_store.h"
#include "shell/window_memory.h"

namespace tarnwell {
namespace {

// A panel that differs from that of the first start wherever it can.
frmModules ChangedPanel() {
  frmModules panel = FirstStartPanel();
  for (int i = 0; i < kSliderCount; ++i) {
    panel.sliders[i].position = i * 13 % (kKnobLast + 1);
    panel.sliders[i].text = std::to_string(kSliders[i].lowest + i);
  }
  for (std::string& check : panel.checks) check = check == "0" ? "1" : "0";
  panel.rotation = 3;
  panel.skin_tones.selected = 2;
  panel.white_balance_mode = WhiteBalanceMode::kCustomFile;
  return panel;
}

std::string LastUsedWithoutVersion(const frmModules& panel) {
  Module1 app;
  frmModules copy = panel;
  WindowMemory memory = {"1", "2,7", {true, {10, 20, 640, 480}, {0, 0, 1936, 1056}}};
  const std::string text = LastUsedText({app, copy, memory});
  return text.substr(text.find('\n') + 1);  // the target puts the version in front
}

std::string LearningLines(int count) {
  std::string lines;
  for (int i = 0; i < count; ++i) {
    lines += FormatLearningRecord({700.0 + i, 20,  250, 5,   0.9, 0.1, 0.5, 0.4,  690, 30,  1.2,
                                   0.9,       -.3, .1,  0.2, 5,   -7,  2,   0.01, 0,   -0.5}) +
             "\r\n";
  }
  return lines;
}

}  // namespace

void AddTextSeeds(Seeds& seeds) {
  const std::array<std::string, 4> reference = {"250", "240", "230", "20"};
  for (const frmModules& panel : {FirstStartPanel(), ChangedPanel()}) {
    seeds["preset_fuzz"].push_back(PresetText(panel, reference, "Tarnwell Pocket"));
    seeds["last_used_settings_fuzz"].push_back(LastUsedWithoutVersion(panel));
  }
  for (const int count : {1, 3, 20}) {
    seeds["learning_file_fuzz"].push_back(LearningLines(count));
  }
  seeds["white_balance_fuzz"] = {WhiteBalanceText({}), WhiteBalanceText({{0, 255, 7}, 182})};
  seeds["skin_tones_fuzz"] = {SkinTonesText({}),
                              SkinTonesText({.names = {"\xC3\xA4"}, .colours = {"098,007,255"}})};
  Module1 app;
  app.extended_noise = app.analyze_full_source = true;
  seeds["power_toys_fuzz"] = {PowerToysText({}), PowerToysText(app)};
  seeds["auto_setup_fuzz"] = {
      AutoSetupText({"C:\\in\\", "\\\\server\\out\\", "D:\\\xE5\x86\x99\\"})};
  seeds["photo_queue_fuzz"] = {QueueLine("C:\\a b.jpg"),
                               QueueLine("C:\\a.jpg") + QueueLine("D:\\b.gif")};
}

}  // namespace tarnwell
