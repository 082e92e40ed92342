#include "ui/panel_rows.h"

#include <array>

#include "engine/final_rotation.h"
#include "imaging/output_names.h"
#include "modules/profiles.h"
#include "modules/skin_tones.h"
#include "modules/white_balance.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/profile_selection.h"
#include "shell/tell.h"
#include "ui/buttons.h"
#include "ui/hue_field.h"
#include "ui/look/hue_wheel.h"
#include "ui/slider_control.h"
#include "ui/swatch_control.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kCaptionHeight = 20;
constexpr int kFieldHeight = 32;
constexpr int kFieldGap = kGrid;

using Parts = std::vector<PanelPart>;

// The caption of a field, over it.
PanelPart Caption(HWND parent, const Look& look, const std::wstring& text) {
  auto label = std::make_unique<Label>(look, Ground::kCard, Face::kCaption, /*quiet=*/true);
  label->Create(parent, text);
  return {std::move(label), [&look](const Box& row) {
            return Box{row.x, row.y, row.width, look.Px(kCaptionHeight)};
          }};
}

// The field under its caption, as wide as the row less `button_width` (at 96 dpi) at its right.
std::function<Box(const Box&)> FieldPlace(const Look& look, int button_width) {
  return [&look, button_width](const Box& row) {
    const int taken = button_width > 0 ? look.Px(button_width) + look.Px(kFieldGap) : 0;
    return Box{row.x, row.y + look.Px(kCaptionHeight), row.width - taken, look.Px(kFieldHeight)};
  };
}

std::function<Box(const Box&)> ButtonPlace(const Look& look, int button_width) {
  return [&look, button_width](const Box& row) {
    const int width = look.Px(button_width);
    return Box{row.right() - width, row.y + look.Px(kCaptionHeight), width, look.Px(kFieldHeight)};
  };
}

PanelPart TextButton(HWND parent, const Look& look, const std::wstring& name,
                     std::function<void()> clicked, std::function<Box(const Box&)> place) {
  auto button = std::make_unique<Button>(look, Ground::kCard, ButtonKind::kPlain);
  button->clicked = std::move(clicked);
  button->Create(parent, name);
  return {std::move(button), std::move(place)};
}

// Whether moving the slider would change anything: some have a check that puts them in force.
bool SliderCounts(const Form1& form, int index) {
  if (index == kWhiteLimitSlider) return form.modules.IsChecked(kWhiteLimitByHand);
  if (index == kBlackLimitSlider) return form.modules.IsChecked(kBlackLimitByHand);
  if (index != kJpegQualitySlider || !form.modules.save_switches[kQualityAsOriginal]) return true;
  return !form.metadata || !form.metadata->jpeg_quality;
}

Parts SliderRow(HWND parent, const Look& look, PanelHost& host, int index) {
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
  Parts parts;
  parts.push_back({std::move(slider), [](const Box& row) { return row; },
                   [made, &host, index] {
                     made->Enable(SliderCounts(host.form, index));
                     made->Update();
                   }});
  return parts;
}

Parts CheckRow(HWND parent, const Look& look, PanelHost& host, int index) {
  auto check = std::make_unique<CheckBox>(look);
  CheckBox* made = check.get();
  frmModules& panel = host.form.modules;
  check->is_on = [&panel, index] { return panel.IsChecked(index); };
  check->clicked = [&host, &panel, index] { host.command([&] { PicCheck_Click(panel, index); }); };
  check->Create(parent, Wide(kChecks[index].caption));
  Parts parts;
  parts.push_back(
      {std::move(check), [](const Box& row) { return row; }, [made] { made->Update(); }});
  return parts;
}

// The entries of a list of cameras or modes, each with its marker cut off.
std::vector<ChoiceBox::Entry> ProfileEntries(const std::vector<std::string>& listed) {
  std::vector<ChoiceBox::Entry> entries;
  for (const std::string& entry : listed) {
    entries.push_back({Wide(std::string_view(entry).substr(1)), entry.starts_with('>')});
  }
  return entries;
}

std::vector<std::string> ListedProfiles(Form1& form, ProfileList list) {
  Result<std::vector<std::string>> listed =
      ListProfiles(form.app, form.platform.files, form.modules, list);
  TellFailure(form, listed.status);
  return listed.ok() ? *listed : std::vector<std::string>();
}

Parts ProfileRow(HWND parent, const Look& look, PanelHost& host, int index) {
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
  Parts parts;
  parts.push_back(Caption(parent, look, cameras ? L"Camera" : L"Mode"));
  parts.push_back({std::move(choice), FieldPlace(look, kNewWidth), [made, &form, cameras] {
                     made->SetShown(Wide(cameras ? form.modules.camera : form.modules.mode));
                   }});
  parts.push_back(TextButton(parent, look, L"New...", add, ButtonPlace(look, kNewWidth)));
  parts.back().control->SetTip(cameras ? L"New Camera" : L"New Mode");
  return parts;
}

std::wstring WhiteModeCaption(const frmModules& panel, int mode) {
  if (mode == 0) return L"Default of camera and mode";
  const std::wstring caption = mode == 1 ? L"White pixel of the photo" : L"Custom file";
  const ModeLabel label = lblModeSet(panel, mode - 1);
  if (!label.visible || label.text.empty() || label.text == "~") return caption;
  return caption + L": " + Wide(label.text);
}

PanelPart WhiteModeChoice(HWND parent, const Look& look, PanelHost& host, int mode) {
  constexpr int kLineHeight = 32;
  constexpr int kSwatchRoom = 64;
  Form1& form = host.form;
  auto radio = std::make_unique<RadioButton>(look);
  RadioButton* made = radio.get();
  radio->arrows_choose = false;
  radio->is_on = [&form, mode] {
    return static_cast<int>(form.modules.white_balance_mode) == mode;
  };
  radio->clicked = [&host, &form, mode] {
    host.command([&] {
      picMode_Click(form.app, form.platform, form.modules, static_cast<WhiteBalanceMode>(mode));
    });
  };
  radio->Create(parent, WhiteModeCaption(form.modules, mode));
  return {std::move(radio),
          [&look, mode](const Box& row) {
            return Box{row.x, row.y + look.Px(kLineHeight) * mode, row.width - look.Px(kSwatchRoom),
                       look.Px(kLineHeight)};
          },
          [made, &form, mode] {
            made->SetText(WhiteModeCaption(form.modules, mode));
            made->Update();
          }};
}

Parts WhiteModesRow(HWND parent, const Look& look, PanelHost& host) {
  constexpr int kSwatchSide = 48;
  Parts parts;
  for (int mode = 0; mode < 3; ++mode) {
    parts.push_back(WhiteModeChoice(parent, look, host, mode));
  }
  auto swatch = std::make_unique<SwatchControl>(look);
  SwatchControl* made = swatch.get();
  Form1& form = host.form;
  swatch->Create(parent, L"Reference white");
  parts.push_back({std::move(swatch),
                   [&look](const Box& row) {
                     const int side = look.Px(kSwatchSide);
                     return Box{row.right() - side, row.y + look.Px(kGrid), side, side};
                   },
                   [made, &form] {
                     made->SetColour(form.modules.lblWhiteClr);
                     made->Show(form.modules.white_swatch_visible);
                   }});
  return parts;
}

struct RowCommand {
  const wchar_t* name;
  std::function<void()> run;
};

// Two buttons that fill a row, the first with `share` percent of it.
Parts CommandsRow(HWND parent, const Look& look, PanelHost& host, int share,
                  const RowCommand& first, const RowCommand& second) {
  const auto first_width = [&look, share](const Box& row) {
    return (row.width - look.Px(kFieldGap)) * share / 100;
  };
  const auto clicked = [&host](const RowCommand& command) {
    return [&host, run = command.run] { host.command(run); };
  };
  Parts parts;
  parts.push_back(
      TextButton(parent, look, first.name, clicked(first), [first_width](const Box& row) {
        return Box{row.x, row.y, first_width(row), row.height};
      }));
  parts.push_back(
      TextButton(parent, look, second.name, clicked(second), [first_width, &look](const Box& row) {
        const int left = row.x + first_width(row) + look.Px(kFieldGap);
        return Box{left, row.y, row.right() - left, row.height};
      }));
  return parts;
}

Parts WhiteCommandsRow(HWND parent, const Look& look, PanelHost& host) {
  constexpr int kOpenShare = 43;  // percent of the row; the other text is longer
  Form1& form = host.form;
  return CommandsRow(
      parent, look, host, kOpenShare,
      {L"Open White Balance", [&form] { OpenWhiteBalance(form.app, form.platform, form.modules); }},
      {L"Save White Balance Setting", [&host] { host.save_white_balance(); }});
}

Parts DeadPixelsRow(HWND parent, const Look& look, PanelHost& host) {
  constexpr int kHalf = 50;
  return CommandsRow(
      parent, look, host, kHalf,
      {L"Add Test Shots...", [&host] { AddTestShotsClick(host.form, host.choose_shots); }},
      {L"Assess Test Shots", [&host] { AssessTestShotsClick(host.form, host.check_entries); }});
}

Parts SkinToneRow(HWND parent, const Look& look, PanelHost& host) {
  constexpr int kManageWidth = 96;
  frmModules& panel = host.form.modules;
  auto choice = std::make_unique<ChoiceBox>(look);
  ChoiceBox* made = choice.get();
  choice->entries = [&panel] {
    std::vector<ChoiceBox::Entry> entries;
    for (int i = 0; i < panel.skin_tones.count(); ++i) {
      entries.push_back({Wide(panel.skin_tones.names[i]), i == panel.skin_tones.selected});
    }
    return entries;
  };
  choice->chosen = [&host, &panel](int row) {
    host.command([&] { SelectEntry(panel.skin_tones, row); });
  };
  choice->Create(parent, L"Skin tone");
  Parts parts;
  parts.push_back(Caption(parent, look, L"Skin tone"));
  parts.push_back({std::move(choice), FieldPlace(look, kManageWidth),
                   [made, &panel] { made->SetShown(Wide(SkinToneCaption(panel.skin_tones))); }});
  parts.push_back(TextButton(
      parent, look, L"Manage...", [&host] { host.command([&] { host.manage_skin_tones(); }); },
      ButtonPlace(look, kManageWidth)));
  return parts;
}

// A swatch of the hue picker and its caption, beside the field.
void AddHueSwatch(HWND parent, const Look& look, PanelHost& host, int index, Parts& parts) {
  constexpr int kLeft = 136;
  constexpr int kSide = 40;
  const auto top = [&look, index](const Box& row) {
    return row.y + look.Px(kGrid) + index * look.Px(kSide + kGrid);
  };
  auto swatch = std::make_unique<SwatchControl>(look);
  SwatchControl* made = swatch.get();
  frmModules& panel = host.form.modules;
  const std::wstring name = index == 0 ? L"Mean color of the photo" : L"With this hue";
  swatch->Create(parent, name);
  parts.push_back({std::move(swatch),
                   [&look, top](const Box& row) {
                     return Box{row.x + look.Px(kLeft), top(row), look.Px(kSide), look.Px(kSide)};
                   },
                   [made, &panel, index] { made->SetColour(panel.hue.lblHue[index]); }});
  auto label = std::make_unique<Label>(look, Ground::kCard, Face::kCaption, /*quiet=*/true);
  label->Create(parent, name);
  parts.push_back({std::move(label), [&look, top](const Box& row) {
                     const int left = row.x + look.Px(kLeft + kSide + kGrid);
                     return Box{left, top(row), row.right() - left, look.Px(kSide)};
                   }});
}

Parts HueRow(HWND parent, const Look& look, PanelHost& host) {
  frmModules& panel = host.form.modules;
  auto field = std::make_unique<HueField>(look);
  HueField* made = field.get();
  field->Create(parent);
  Parts parts;
  AddHueSwatch(parent, look, host, 0, parts);
  AddHueSwatch(parent, look, host, 1, parts);
  const auto update_swatch = parts[2].update;
  field->read = [&panel] { return panel.hue; };
  field->moved = [&host, &panel, update_swatch](int x, int y) {
    host.small_change([&] { MoveHueMarker(panel.hue, x, y); });
    update_swatch();
  };
  parts.push_back(
      {std::move(field),
       [&look](const Box& row) {
         const int side = look.Px(kHueFieldSide);
         return Box{row.x + look.Px(kGrid), row.y + (row.height - side) / 2, side, side};
       },
       [made] { made->Update(); }});
  return parts;
}

constexpr std::array<const wchar_t*, kTurnCount> kTurnNames = {
    L"Turn anticlockwise", L"Turn clockwise", L"Turn by half", L"Turn upside down",
    L"Exchange left and right"};

// A little landscape as the turn leaves it, so that the choice is seen and not read.
void PaintTurn(Painter& painter, const Box& client, Turn turn, Colour colour) {
  const auto turned = [turn](double u, double v) -> Point {
    switch (turn) {
      case Turn::kAnticlockwise:
        return {v, 1 - u};
      case Turn::kClockwise:
        return {1 - v, u};
      case Turn::kHalf:
        return {1 - u, 1 - v};
      case Turn::kUpsideDown:
        return {u, 1 - v};
      case Turn::kLeftRight:
        return {1 - u, v};
    }
    return {u, v};
  };
  const double side = client.width * 0.5;
  const double left = client.x + (client.width - side) / 2;
  const double top = client.y + (client.height - side) / 2;
  const auto place = [&](double u, double v) {
    const Point p = turned(u, v);
    return Point{left + p.x * side, top + p.y * side};
  };
  const std::array<Line, 2> lines = {
      Line{place(0, 0), place(1, 0), place(1, 1), place(0, 1), place(0, 0)},
      Line{place(0, 0.85), place(0.35, 0.4), place(0.6, 0.75), place(0.75, 0.6), place(1, 0.85)}};
  painter.Lines(lines, painter.look().scale.Exact(1.5), colour);
  painter.Disc(place(0.75, 0.28), side * 0.09, colour);
}

Parts RotationRow(HWND parent, const Look& look, PanelHost& host) {
  constexpr int kSide = 48;
  frmModules& panel = host.form.modules;
  Parts parts;
  for (int turn = 0; turn < kTurnCount; ++turn) {
    auto button = std::make_unique<PictureButton>(
        look, [turn](Painter& painter, const Box& client, Colour colour) {
          PaintTurn(painter, client, static_cast<Turn>(turn), colour);
        });
    PictureButton* made = button.get();
    button->clicked = [&host, &panel, turn] { host.command([&] { panel.rotation = turn; }); };
    button->Create(parent, kTurnNames[turn]);
    button->SetTip(kTurnNames[turn]);
    parts.push_back(
        {std::move(button),
         [&look, turn](const Box& row) {
           const int side = look.Px(kSide);
           return Box{row.x + turn * (side + look.Px(kFieldGap)), row.y + look.Px(4), side, side};
         },
         [made, &panel, turn] { made->SetChosen(panel.rotation == turn); }});
  }
  return parts;
}

Parts OutputNameRow(HWND parent, const Look& look, PanelHost& host) {
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
  Parts parts;
  parts.push_back(Caption(parent, look, L"New file name"));
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

Parts SaveSwitchRow(HWND parent, const Look& look, PanelHost& host, int index) {
  auto check = std::make_unique<CheckBox>(look);
  CheckBox* made = check.get();
  Form1& form = host.form;
  bool& on = form.modules.save_switches[index];
  check->is_on = [&on] { return on; };
  check->clicked = [&host, &on] { host.command([&on] { on = !on; }); };
  check->Create(parent, SaveSwitchCaption(form, index));
  Parts parts;
  parts.push_back({std::move(check), [](const Box& row) { return row; },
                   [made, &form, index] {
                     made->SetText(SaveSwitchCaption(form, index));
                     made->Update();
                   }});
  return parts;
}

}  // namespace

std::vector<PanelPart> MakeRow(HWND parent, const Look& look, PanelHost& host,
                               const PanelRow& row) {
  switch (row.kind) {
    case RowKind::kSlider:
      return SliderRow(parent, look, host, row.index);
    case RowKind::kCheck:
      return CheckRow(parent, look, host, row.index);
    case RowKind::kProfileList:
      return ProfileRow(parent, look, host, row.index);
    case RowKind::kWhiteModes:
      return WhiteModesRow(parent, look, host);
    case RowKind::kWhiteCommands:
      return WhiteCommandsRow(parent, look, host);
    case RowKind::kDeadPixels:
      return DeadPixelsRow(parent, look, host);
    case RowKind::kSkinTone:
      return SkinToneRow(parent, look, host);
    case RowKind::kHue:
      return HueRow(parent, look, host);
    case RowKind::kRotation:
      return RotationRow(parent, look, host);
    case RowKind::kOutputName:
      return OutputNameRow(parent, look, host);
    case RowKind::kSaveSwitch:
      return SaveSwitchRow(parent, look, host, row.index);
  }
  return {};
}

}  // namespace tarnwell
