#include "ui/white_balance_rows.h"

#include "modules/frm_modules.h"
#include "modules/skin_tones.h"
#include "modules/white_balance.h"
#include "shell/form1.h"
#include "ui/buttons.h"
#include "ui/swatch_control.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

std::wstring WhiteModeCaption(const frmModules& panel, int mode) {
  if (mode == 0) return L"Default of camera and mode";
  const std::wstring caption = mode == 1 ? L"White pixel of the photo" : L"Custom file";
  const ModeLabel label = lblModeSet(panel, mode - 1);
  if (!label.visible || label.text.empty() || label.text == "~") return caption;
  return AsCaption(caption + L": " + Wide(label.text));
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
            // There is no pixel to pick without a photo.
            made->Enable(mode != static_cast<int>(WhiteBalanceMode::kPickedPixel) ||
                         form.buffer.surfaces.picOriginal.picture);
            made->Update();
          }};
}

}  // namespace

PanelParts MakeWhiteModesRow(HWND parent, const Look& look, PanelHost& host) {
  constexpr int kSwatchSide = 48;
  PanelParts parts;
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

PanelParts MakeWhiteCommandsRow(HWND parent, const Look& look, PanelHost& host) {
  constexpr int kOpenShare = 43;  // percent of the row; the other text is longer
  Form1& form = host.form;
  return MakeCommands(
      parent, look, host, kOpenShare,
      {L"Open White Balance", [&form] { OpenWhiteBalance(form.app, form.platform, form.modules); }},
      {L"Save White Balance Setting", [&host] { host.save_white_balance(); }});
}

PanelParts MakeSkinToneRow(HWND parent, const Look& look, PanelHost& host) {
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
  PanelParts parts;
  parts.push_back(MakeCaption(parent, look, L"Skin tone"));
  parts.push_back({std::move(choice), FieldPlace(look, kManageWidth),
                   [made, &panel] { made->SetShown(Wide(SkinToneCaption(panel.skin_tones))); }});
  parts.push_back(MakeTextButton(
      parent, look, L"Manage...", [&host] { host.command([&] { host.manage_skin_tones(); }); },
      ButtonPlace(look, kManageWidth)));
  return parts;
}

}  // namespace tarnwell
