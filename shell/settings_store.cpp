// Lines of the last-used settings file, each one value:
//
//    1       version of the program that wrote it
//    2       setting of the tips
//    3       tips that are not shown again
//    4       photo open mode: 0 to 2
//    5       automatic preview: 1 or 0
//    6 -  7  camera, mode
//    8       rotation: 0 to 4
//    9       index of the skin tone, -1 for none
//   10 - 35  for each slider its knob position, then its value text
//   36 - 40  check options 0 to 4: 1 or 0
//   41 - 54  the open flag of each module: 1 or 0
//   55       white balance mode: 0 to 2
//   56       custom white balance file; empty for none
//   57       a white pixel has been picked: 1 or 0
//   58 - 60  its red, green and blue
//   61 - 62  hue marker, horizontal and vertical position
//   63       the window with the modules is at its largest: 1 or 0
//   64 - 67  its left, top, width and height in that state
//   68       saved photos do not tell their place: 1 or 0
//   69       saved photos take their original's JPEG quality: 1 or 0
//
// Lines 68 and 69 are there only when one of them is 1.
//
// VisitFields below is this list for the program. Writing and reading are two visitors of it, so
// that neither can come to know another order than the other.

#include "shell/settings_store.h"

#include <cstdint>
#include <limits>

#include "modules/frm_modules.h"
#include "modules/skin_tones.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/field_visitors.h"
#include "shell/form1.h"
#include "shell/line_reader.h"
#include "shell/module1.h"
#include "shell/power_toys.h"

namespace tarnwell {
namespace {

constexpr int kLowest16 = std::numeric_limits<std::int16_t>::min();
constexpr int kHighest16 = std::numeric_limits<std::int16_t>::max();

template <typename Visitor>
void VisitSliders(Visitor& visitor, frmModules& panel) {
  for (int slider = 0; slider < kSliderCount; ++slider) {
    visitor.Number(panel.sliders[slider].position, 0, kKnobLast);
    visitor.ValueText(panel.sliders[slider].text, kSliders[slider]);
  }
}

template <typename Visitor>
void VisitWhiteBalance(Visitor& visitor, frmModules& panel) {
  int mode = static_cast<int>(panel.white_balance_mode);
  visitor.Choice(mode, 0, 2);
  panel.white_balance_mode = static_cast<WhiteBalanceMode>(mode);
  visitor.Text(panel.custom_white_file);
  bool is_picked = panel.picked_white.has_value();
  visitor.Flag(is_picked);
  Rgb white = panel.picked_white.value_or(Rgb());
  for (int* channel : {&white.red, &white.green, &white.blue}) visitor.Number(*channel, 0, 255);
  // Half a colour is none.
  if (visitor.ok()) panel.picked_white = is_picked ? std::optional(white) : std::nullopt;
}

template <typename Visitor>
void VisitPlacement(Visitor& visitor, WindowPlacement& placement) {
  visitor.Flag(placement.maximized);
  WindowBounds& bounds = placement.current();
  visitor.Number(bounds.left, kLowest16, kHighest16);
  visitor.Number(bounds.top, kLowest16, kHighest16);
  visitor.Number(bounds.width, 0, kHighest16);
  visitor.Number(bounds.height, 0, kHighest16);
}

// Lines 2 to 69.
template <typename Visitor>
void VisitFields(Visitor& visitor, const LastUsed& settings) {
  frmModules& panel = settings.panel;
  visitor.Text(settings.memory.tips_setting);
  visitor.Text(settings.memory.hidden_tips);
  visitor.Choice(settings.app.open_mode, 0, 2);
  visitor.Flag(settings.app.auto_preview);
  visitor.Text(panel.camera);
  visitor.Text(panel.mode);
  visitor.Choice(panel.rotation, 0, 4);
  visitor.Number(panel.skin_tones.selected, -1, kHighest16);
  VisitSliders(visitor, panel);
  for (std::string& check : panel.checks) visitor.Flag(check);
  for (std::int16_t& open : panel.open) visitor.Flag(open);
  VisitWhiteBalance(visitor, panel);
  visitor.Number(panel.hue.marker_x, 0, kHueFieldLast);
  visitor.Number(panel.hue.marker_y, 0, kHueFieldLast);
  VisitPlacement(visitor, settings.memory.placement);
  if (!visitor.GoesOn(panel.save_switches[kLeavePlaceOut] ||
                      panel.save_switches[kQualityAsOriginal]))
    return;
  visitor.Flag(panel.save_switches[kLeavePlaceOut]);
  visitor.Flag(panel.save_switches[kQualityAsOriginal]);
}

LastUsed SettingsOf(Form1& form) { return {form.app, form.modules, form.memory}; }

}  // namespace

std::string LastUsedText(const LastUsed& settings) {
  FieldWriter writer;
  writer.Text(TARNWELL_VERSION);
  VisitFields(writer, settings);
  return writer.text();
}

Status ApplyLastUsedText(const LastUsed& settings, std::string_view text, const std::string& name) {
  FieldReader reader(text, name);
  if (reader.NextLine() != TARNWELL_VERSION) return Status::Ok();
  VisitFields(reader, settings);
  // What follows from the fields.
  SelectEntry(settings.panel.skin_tones, settings.panel.skin_tones.selected);
  HuePicker& hue = settings.panel.hue;
  MoveHueMarker(hue, hue.marker_x, hue.marker_y);
  return reader.status();
}

Status INISave(Form1& form) {
  Files& files = form.platform.files;
  const Status saved = files.Replace(form.app.settings_file, LastUsedText(SettingsOf(form)));
  const Status toys = ToySave(form.app, files);
  return saved.ok() ? toys : saved;
}

Status LoadLastUsedSettings(Form1& form) {
  Files& files = form.platform.files;
  const std::string& path = form.app.settings_file;
  const Result<std::string> text = files.Read(path, kMostTextBytes);
  if (text.status.failure == Failure::kNotFound) return Status::Ok();
  if (!text.ok()) return text.status;
  return ApplyLastUsedText(SettingsOf(form), *text, files.Display(path));
}

}  // namespace tarnwell
