// Lines of a preset, each one value:
//
//    1 -  4  the lines of the custom white balance file in use, or four times "0"
//    5       title and " Saved Preset File"
//    6       version
//    7 - 20  the open flag of each module
//   21 - 46  for each slider its knob position, then its value text
//   47       check option 3
//   48       white balance mode
//   49 - 50  hue marker, horizontal and vertical position
//   51       index of the skin tone
//   52       check option 4
//
// An empty line follows.

#include "modules/presets.h"

#include <algorithm>

#include "modules/settings_file.h"
#include "modules/skin_tones.h"
#include "modules/white_balance.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/line_reader.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

constexpr int kHeaderLines = 6;

using FourLines = std::array<std::string, 4>;

Result<FourLines> CustomWhiteLines(Files& files, const frmModules& panel) {
  FourLines four = {"0", "0", "0", "0"};
  const std::string& path = panel.custom_white_file;
  if (path.empty() || !files.FileExists(path)) return four;
  const Result<std::string> text = files.Read(path, kMostTextBytes);
  if (!text.ok()) return text.status;
  LineReader lines(*text, files.Display(path));
  for (std::string& kept : four) {
    const auto line = lines.Next();
    if (!line) return lines.Missing();
    kept = *line;
  }
  return four;
}

Result<std::string> PresetOf(const Module1& app, Files& files, const frmModules& panel) {
  const Result<FourLines> four = CustomWhiteLines(files, panel);
  if (!four.ok()) return four.status;
  return PresetText(panel, *four, app.title);
}

Status SkipHeader(LineReader& lines) {
  for (int i = 0; i < kHeaderLines; ++i) {
    if (!lines.Next()) return lines.Missing();
  }
  return Status::Ok();
}

Status ApplyFlags(frmModules& panel, LineReader& lines, PendingEvents& events) {
  for (int module = 0; module < kModuleCount; ++module) {
    const Result<int> flag = NextInteger(lines);
    if (!flag.ok()) return flag.status;
    if (*flag != panel.open[module]) PicExpand_Click(panel, module, events);
  }
  return Status::Ok();
}

Status ApplySliders(frmModules& panel, LineReader& lines) {
  for (Slider& slider : panel.sliders) {
    const Result<int> position = NextInteger(lines);
    if (!position.ok()) return position.status;
    slider.position = std::clamp(*position, 0, kKnobLast);
    const auto text = lines.Next();
    if (!text) return lines.Missing();
    slider.text = *text;
  }
  return Status::Ok();
}

Status ApplyCheck(frmModules& panel, LineReader& lines, int check) {
  const auto state = lines.Next();
  if (!state) return lines.Missing();
  if (*state != panel.checks[check]) PicCheck_Click(panel, check);
  return Status::Ok();
}

Result<WhiteBalanceMode> ApplyWhiteBalanceMode(frmModules& panel, LineReader& lines,
                                               const std::string& path) {
  const Result<int> mode = NextInteger(lines);
  if (!mode.ok()) return mode.status;
  if (*mode < 0 || *mode > 2) return lines.Damaged("0, 1 or 2 is expected here");
  if (*mode == 2) {
    panel.custom_white_file = path;
  } else {
    panel.white_balance_mode = static_cast<WhiteBalanceMode>(*mode);
  }
  return static_cast<WhiteBalanceMode>(*mode);
}

Status ApplyHueMarker(frmModules& panel, LineReader& lines) {
  const Result<int> x = NextInteger(lines);
  if (!x.ok()) return x.status;
  const Result<int> y = NextInteger(lines);
  if (!y.ok()) return y.status;
  MoveHueMarker(panel.hue, *x, *y);
  return Status::Ok();
}

Status ApplySkinTone(frmModules& panel, LineReader& lines) {
  const Result<int> index = NextInteger(lines);
  if (!index.ok()) return index.status;
  SelectEntry(panel.skin_tones, *index);
  return Status::Ok();
}

}  // namespace

std::string PresetText(const frmModules& panel, const FourLines& first_four_lines,
                       const std::string& title) {
  std::string text;
  const auto add = [&text](const std::string& line) { text += line + "\r\n"; };
  for (const std::string& line : first_four_lines) add(line);
  add(title + " Saved Preset File");
  add(TARNWELL_VERSION);
  for (int module = 0; module < kModuleCount; ++module) add(panel.IsOpen(module) ? "1" : "0");
  for (const Slider& slider : panel.sliders) {
    add(std::to_string(slider.position));
    add(slider.text);
  }
  add(panel.checks[kUseLearntCorrections]);
  add(std::to_string(static_cast<int>(panel.white_balance_mode)));
  add(std::to_string(panel.hue.marker_x));
  add(std::to_string(panel.hue.marker_y));
  add(std::to_string(panel.skin_tones.selected));
  add(panel.checks[kProtectLightAreas]);
  add("");
  return text;
}

Status WritePreset(const Module1& app, Files& files, const frmModules& panel,
                   const std::string& path) {
  const Result<std::string> text = PresetOf(app, files, panel);
  if (!text.ok()) return text.status;
  return ReplaceSettingsFile(files, path, *text);
}

Status PresetSave(const Module1& app, Platform& platform, const frmModules& panel) {
  const Result<std::string> text = PresetOf(app, platform.files, panel);
  if (!text.ok()) return text.status;
  const auto path =
      platform.dialogs.ChooseSaveFile("Save Custom Preset", kPresetFilter, TakenNames::kAsk);
  if (!path || path->empty()) return Status::Error(Failure::kCancelled, "");
  return ReplaceSettingsFile(platform.files, *path, *text);
}

Result<WhiteBalanceMode> ApplyPresetText(frmModules& panel, std::string_view text,
                                         const std::string& path, const std::string& name,
                                         PendingEvents& events) {
  LineReader lines(text, name);
  Status status = SkipHeader(lines);
  if (status.ok()) status = ApplyFlags(panel, lines, events);
  if (status.ok()) status = ApplySliders(panel, lines);
  if (status.ok()) status = ApplyCheck(panel, lines, kUseLearntCorrections);
  if (!status.ok()) return status;
  const Result<WhiteBalanceMode> mode = ApplyWhiteBalanceMode(panel, lines, path);
  if (!mode.ok()) return mode.status;
  status = ApplyHueMarker(panel, lines);
  if (status.ok()) status = ApplySkinTone(panel, lines);
  if (status.ok()) status = ApplyCheck(panel, lines, kProtectLightAreas);
  if (!status.ok()) return status;
  return *mode;
}

Status PresetLoad(Module1& app, Platform& platform, frmModules& panel, const std::string& path) {
  std::string chosen = path;
  if (chosen.empty()) {
    chosen = platform.dialogs.ChooseOpenFile("Load Custom Preset", kPresetFilter).value_or("");
    if (chosen.empty()) return Status::Error(Failure::kCancelled, "");
  }
  chosen = platform.files.Absolute(chosen);
  app.preset_path = chosen;
  const Result<std::string> text = platform.files.Read(chosen, kMostTextBytes);
  if (!text.ok()) return text.status;
  const Result<WhiteBalanceMode> mode =
      ApplyPresetText(panel, *text, chosen, platform.files.Display(chosen), platform.events);
  if (!mode.ok()) return mode.status;
  if (*mode != WhiteBalanceMode::kCustomFile) return Status::Ok();
  panel.white_balance_mode = WhiteBalanceMode::kCustomFile;
  return UseWhiteBalanceFile(platform.files, panel, chosen);
}

}  // namespace tarnwell
