#include "ui/panel_rows.h"

#include "imaging/output_names.h"
#include "modules/frm_modules.h"
#include "modules/profiles.h"
#include "modules/settings_in_force.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/profile_selection.h"
#include "shell/tell.h"
#include "ui/buttons.h"
#include "ui/hue_row.h"
#include "ui/rotation_row.h"
#include "ui/slider_control.h"
#include "ui/white_balance_rows.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

// Whether moving the slider would change anything: some have a check that puts them in force.
bool SliderCounts(const Form1& form, int index) {
  if (const auto check = CheckBehind(index)) return form.modules.IsChecked(*check);
  if (index != kJpegQualitySlider || !form.modules.save_switches[kQualityAsOriginal]) return true;
  return !form.metadata || !form.metadata->jpeg_quality;
}

PanelParts SliderRow(HWND parent, const Look& look, PanelHost& host, int index) {
  auto slider = std::make_unique<SliderControl>(look);
  SliderControl* made = slider.get();
  frmModules& panel = host.form.modules;
  if (kSliders[index].lowest < 0) slider->origin = kKnobCentre;
  slider->read = [&panel, index] { return panel.sliders[index]; };
  slider->moved = [&host, &panel, index](int position) {
    host.small_change([&] { CalcSlidVal(panel, index, position); });
  };
  slider->stepped = [&host, &panel, index](int direction) {
    host.small_change([&] { StepSlider(panel, index, direction, host.form.platform.events); });
  };
  slider->Create(parent, Wide(kSliders[index].name));
  PanelParts parts;
  parts.push_back({std::move(slider), [](const Box& row) { return row; },
                   [made, &host, index] {
                     made->Enable(SliderCounts(host.form, index));
                     made->Update();
                   }});
  return parts;
}

PanelParts CheckRow(HWND parent, const Look& look, PanelHost& host, int index) {
  auto check = std::make_unique<CheckBox>(look);
  CheckBox* made = check.get();
  frmModules& panel = host.form.modules;
  check->is_on = [&panel, index] { return panel.IsChecked(index); };
  check->clicked = [&host, &panel, index] { host.command([&] { PicCheck_Click(panel, index); }); };
  check->Create(parent, Wide(kChecks[index].caption));
  PanelParts parts;
  parts.push_back(
      {std::move(check), [](const Box& row) { return row; }, [made] { made->Update(); }});
  return parts;
}

std::vector<ChoiceBox::Entry> ProfileEntries(const std::vector<std::string>& listed) {
  std::vector<ChoiceBox::Entry> entries;
  for (const std::string& entry : listed) {
    entries.push_back({Wide(ProfileNameOf(entry)), IsCurrentProfile(entry)});
  }
  return entries;
}

std::vector<std::string> ListedProfiles(Form1& form, ProfileList list) {
  Result<std::vector<std::string>> listed =
      ListProfiles(form.app, form.platform.files, form.modules, list);
  TellFailure(form, listed.status);
  return listed.ok() ? *listed : std::vector<std::string>();
}

PanelParts ProfileRow(HWND parent, const Look& look, PanelHost& host, int index) {
  constexpr int kNewWidth = 72;
  const auto list = static_cast<ProfileList>(index);
  const bool cameras = list == ProfileList::kCameras;
  Form1& form = host.form;

  auto choice = std::make_unique<ChoiceBox>(look);
  ChoiceBox* made = choice.get();
  choice->entries = [&form, list] { return ProfileEntries(ListedProfiles(form, list)); };
  choice->chosen = [&host, &form, list](int row) {
    host.command([&] {
      const std::vector<std::string> listed = ListedProfiles(form, list);
      if (row < static_cast<int>(listed.size())) ProfileEntry_Click(form, list, listed[row]);
    });
  };
  choice->Create(parent, cameras ? L"Camera" : L"Mode");

  const auto add = [&host, &form, cameras] {
    host.command([&] {
      if (cameras) {
        NewCamera(form.app, form.platform, form.modules);
      } else {
        NewModeClick(form);
      }
    });
  };
  PanelParts parts;
  parts.push_back(MakeCaption(parent, look, cameras ? L"Camera" : L"Mode"));
  parts.push_back({std::move(choice), FieldPlace(look, kNewWidth), [made, &form, cameras] {
                     made->SetShown(Wide(cameras ? form.modules.camera : form.modules.mode));
                   }});
  parts.push_back(MakeTextButton(parent, look, L"New...", add, ButtonPlace(look, kNewWidth)));
  parts.back().control->SetTip(cameras ? L"New Camera" : L"New Mode");
  return parts;
}

PanelParts DeadPixelsRow(HWND parent, const Look& look, PanelHost& host) {
  constexpr int kHalf = 50;
  return MakeCommands(
      parent, look, host, kHalf,
      {L"Add Test Shots...", [&host] { AddTestShotsClick(host.form, host.choose_shots); }},
      {L"Assess Test Shots", [&host] { AssessTestShotsClick(host.form, host.check_entries); }});
}

PanelParts OutputNameRow(HWND parent, const Look& look, PanelHost& host) {
  Form1& form = host.form;
  auto choice = std::make_unique<ChoiceBox>(look);
  ChoiceBox* made = choice.get();
  choice->entries = [&form] {
    std::vector<ChoiceBox::Entry> entries;
    for (std::size_t i = 0; i < form.names.entries.size(); ++i) {
      entries.push_back(
          {Wide(form.names.entries[i]), form.names.paths[i] == form.names.output_path});
    }
    return entries;
  };
  choice->chosen = [&host, &form](int row) {
    host.command([&] { ChooseOutputName(form.names, static_cast<std::size_t>(row)); });
  };
  choice->Create(parent, L"New file name");
  PanelParts parts;
  parts.push_back(MakeCaption(parent, look, L"New file name"));
  parts.push_back({std::move(choice), FieldPlace(look, 0), [made, &form] {
                     made->SetShown(Wide(form.names.shown));
                     made->Enable(!form.names.entries.empty());
                   }});
  return parts;
}

// The caption of a switch; with the quality that it would take, where the photo tells one.
std::wstring SaveSwitchCaption(const Form1& form, int index) {
  const std::wstring caption = Wide(kSaveSwitches[index]);
  if (index != kQualityAsOriginal || !form.metadata || !form.metadata->jpeg_quality) return caption;
  return caption + L" (" + std::to_wstring(*form.metadata->jpeg_quality) + L")";
}

PanelParts SaveSwitchRow(HWND parent, const Look& look, PanelHost& host, int index) {
  auto check = std::make_unique<CheckBox>(look);
  CheckBox* made = check.get();
  Form1& form = host.form;
  bool& on = form.modules.save_switches[index];
  check->is_on = [&on] { return on; };
  check->clicked = [&host, &on] { host.command([&on] { on = !on; }); };
  check->Create(parent, SaveSwitchCaption(form, index));
  PanelParts parts;
  parts.push_back({std::move(check), [](const Box& row) { return row; },
                   [made, &form, index] {
                     made->SetText(SaveSwitchCaption(form, index));
                     made->Update();
                   }});
  return parts;
}

}  // namespace

PanelParts MakeRow(HWND parent, const Look& look, PanelHost& host, const PanelRow& row) {
  switch (row.kind) {
    case RowKind::kSlider:
      return SliderRow(parent, look, host, row.index);
    case RowKind::kCheck:
      return CheckRow(parent, look, host, row.index);
    case RowKind::kProfileList:
      return ProfileRow(parent, look, host, row.index);
    case RowKind::kWhiteModes:
      return MakeWhiteModesRow(parent, look, host);
    case RowKind::kWhiteCommands:
      return MakeWhiteCommandsRow(parent, look, host);
    case RowKind::kDeadPixels:
      return DeadPixelsRow(parent, look, host);
    case RowKind::kSkinTone:
      return MakeSkinToneRow(parent, look, host);
    case RowKind::kHue:
      return MakeHueRow(parent, look, host);
    case RowKind::kRotation:
      return MakeRotationRow(parent, look, host);
    case RowKind::kOutputName:
      return OutputNameRow(parent, look, host);
    case RowKind::kSaveSwitch:
      return SaveSwitchRow(parent, look, host, row.index);
  }
  return {};
}

}  // namespace tarnwell
