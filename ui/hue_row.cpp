#include "ui/hue_row.h"

#include "modules/frm_modules.h"
#include "shell/form1.h"
#include "ui/buttons.h"
#include "ui/hue_field.h"
#include "ui/look/hue_wheel.h"
#include "ui/swatch_control.h"

namespace tarnwell {
namespace {

// A swatch of the hue picker and its caption, beside the field.
void AddHueSwatch(HWND parent, const Look& look, PanelHost& host, int index, PanelParts& parts) {
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

}  // namespace

PanelParts MakeHueRow(HWND parent, const Look& look, PanelHost& host) {
  frmModules& panel = host.form.modules;
  auto field = std::make_unique<HueField>(look);
  HueField* made = field.get();
  field->Create(parent);
  PanelParts parts;
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

}  // namespace tarnwell
