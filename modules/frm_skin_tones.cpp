#include "modules/frm_skin_tones.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "engine/rounding.h"
#include "modules/skin_tones.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "shell/lenient_number.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

// The field as a whole number, already cut to -1..256 so that any size fits.
std::optional<int> FieldValue(const std::string& field) {
  const auto number = ParseLenientNumber(field);
  std::int16_t whole = 0;
  if (!number || !RoundInto(whole, std::clamp(*number, -1.0, 256.0))) return std::nullopt;
  return whole;
}

// The three fields as numbers from 0 to 255, after writing the nearest bound into a field outside
// that range. Nothing when one of them is no number.
std::optional<std::array<int, 3>> TakeFields(frmSkinTones& window) {
  std::array<int, 3> values = {};
  bool numeric = true;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const auto value = FieldValue(window.fields[i]);
    if (!value) {
      numeric = false;
      continue;
    }
    values[i] = std::clamp(*value, 0, 255);
    if (values[i] != *value) window.fields[i] = std::to_string(values[i]);
  }
  if (!numeric) return std::nullopt;
  return values;
}

void TellNotNumeric(const Module1& app, Platform& platform) {
  platform.dialogs.Tell({app.title, "Color values must be numeric.", Icon::kInformation});
}

void ShowFields(const Module1& app, Platform& platform, frmSkinTones& window) {
  const auto values = TakeFields(window);
  if (values) {
    window.swatch = {(*values)[0], (*values)[1], (*values)[2]};
  } else {
    TellNotNumeric(app, platform);
  }
}

std::string ColourText(const std::array<int, 3>& values) {
  std::string text;
  for (const int value : values) {
    const std::string digits = std::to_string(value);
    if (!text.empty()) text += ',';
    text += std::string(3 - digits.size(), '0') + digits;
  }
  return text;
}

// A name is one line of the file, whatever was pasted into the field.
std::string OneLine(std::string name) {
  std::erase_if(name, [](char c) { return c == '\r' || c == '\n'; });
  return name;
}

void AddOrReplace(const Module1& app, Platform& platform, frmSkinTones& window, bool add) {
  const auto values = TakeFields(window);
  if (!values) return TellNotNumeric(app, platform);
  SkinTones& list = window.list;
  if (add) {
    list.names.push_back(OneLine(window.description));
    list.colours.push_back(ColourText(*values));
  } else {
    list.names[list.selected] = OneLine(window.description);
    list.colours[list.selected] = ColourText(*values);
  }
}

void DeleteSelected(SkinTones& list) {
  list.names.erase(list.names.begin() + list.selected);
  list.colours.erase(list.colours.begin() + list.selected);
  list.selected = -1;
}

void MoveSelected(SkinTones& list, int places) {
  const int target = list.selected + places;
  if (target < 0 || target >= list.count()) return;
  std::swap(list.names[list.selected], list.names[target]);
  std::swap(list.colours[list.selected], list.colours[target]);
  list.selected = target;
}

}  // namespace

void OpenSkinTones(frmSkinTones& window, const SkinTones& tones) {
  if (window.visible) return;
  if (window.awaits_colour) return StopAwaitingColour(window);
  window = frmSkinTones();
  window.list = tones;
  window.list.selected = -1;
  window.visible = true;
}

void SkinToneList_Click(const Module1& app, Platform& platform, frmSkinTones& window, int index) {
  SelectEntry(window.list, index);
  if (!window.list.HasSelection()) return;
  window.description = window.list.names[index];
  // Digits stand at 1 to 3, 5 to 7 and 9 to 11. A colour text from a file may be shorter.
  const std::string colour = window.list.colours[index];
  for (std::size_t i = 0; i < window.fields.size(); ++i) {
    window.fields[i] = colour.size() > 4 * i ? colour.substr(4 * i, 3) : "";
  }
  ShowFields(app, platform, window);
}

void ColourField_Change(const Module1& app, Platform& platform, frmSkinTones& window, int field,
                        const std::string& text) {
  window.fields[field] = text;
  ShowFields(app, platform, window);
}

void SkinToneButton_Click(const Module1& app, Platform& platform, frmSkinTones& window,
                          SkinToneButton button) {
  if (button != kAdd && !window.list.HasSelection()) {
    platform.dialogs.Tell({app.title, "No Item Selected", Icon::kNone});
    return;
  }
  switch (button) {
    case kAdd:
      return AddOrReplace(app, platform, window, true);
    case kReplace:
      return AddOrReplace(app, platform, window, false);
    case kDelete:
      return DeleteSelected(window.list);
    case kMoveDown:
      return MoveSelected(window.list, 1);
    case kMoveUp:
      return MoveSelected(window.list, -1);
  }
}

void SkinTonesOk(const Module1& app, Platform& platform, frmSkinTones& window, frmModules& panel) {
  const int selected = panel.skin_tones.selected;
  panel.skin_tones = window.list;
  SelectEntry(panel.skin_tones, selected);
  const Status saved = SkinTonesSave(app, platform.files, panel.skin_tones);
  if (!saved.ok()) platform.dialogs.Tell({app.title, saved.message, Icon::kInformation});
  window.visible = false;
}

void SkinTonesCancel(frmSkinTones& window) { window.visible = false; }

void GetColorFromPhoto(frmSkinTones& window, frmModules& panel) {
  window.visible = false;
  window.awaits_colour = true;
  panel.ShowZoom(ZoomMode::kPickSkin);
}

void TakeColorFromPhoto(frmSkinTones& window, const Rgb& colour) {
  window.fields = {std::to_string(colour.red), std::to_string(colour.green),
                   std::to_string(colour.blue)};
  window.swatch = colour;
  StopAwaitingColour(window);
}

void StopAwaitingColour(frmSkinTones& window) {
  if (!window.awaits_colour) return;
  window.awaits_colour = false;
  window.visible = true;
}

}  // namespace tarnwell
