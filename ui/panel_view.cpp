#include "ui/panel_view.h"

#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/profile_selection.h"
#include "ui/buttons.h"
#include "ui/switch_control.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kSwitchWidth = 44;

}  // namespace

PanelView::PanelView(const Look& look, PanelHost host) : ScrollView(look), host_(std::move(host)) {}

PanelView::~PanelView() = default;

void PanelView::Create(HWND parent) {
  ScrollView::Create(parent, L"Modules");
  for (int module = 0; module < kModuleCount; ++module) MakeModule(module);
}

void PanelView::MakeModule(int module) {
  ModuleParts& parts = modules_[module];
  Form1& form = host_.form;
  const std::wstring title = Wide(kModules[module].title);
  parts.expand = std::make_unique<SwitchControl>(look_);
  parts.expand->is_on = [&form, module] { return form.modules.IsOpen(module); };
  parts.expand->clicked = [this, module] { Toggle(module); };
  parts.expand->Create(content(), L"Open/ Close Module: " + title);
  parts.expand->SetTip(L"Open/ Close Module");

  parts.defaults = std::make_unique<Button>(look_, Ground::kCard, ButtonKind::kFlat, Glyph::kReset);
  parts.defaults->clicked = [this, &form, module] {
    host_.command([&] { DefaultValuesClick(form, module); });
  };
  parts.defaults->Create(content(), L"Default Values: " + title, /*text_shown=*/false);
  parts.defaults->SetTip(L"Default Values");

  for (const PanelRow& row : RowsOf(module)) {
    parts.rows.push_back(MakeRow(content(), look_, host_, row));
  }
}

void PanelView::Toggle(int module) {
  host_.command([&] {
    PicExpand_Click(host_.form.modules, module, host_.form.platform.events);
    host_.module_toggled(module);
  });
}

void PanelView::PlaceModule(int module) {
  ModuleParts& parts = modules_[module];
  const ModulePlace& place = layout_.modules[module];
  const Box& header = place.header;
  const Box expand = {header.right() - look_.Px(kSwitchWidth + kGrid), header.y + 1,
                      look_.Px(kSwitchWidth), header.height - 2};
  parts.expand->Place(expand);
  parts.expand->Update();
  const int side = header.height - look_.Px(4);
  parts.defaults->Place({expand.x - side, header.y + look_.Px(2), side, side});
  const bool open = !place.rows.empty();
  for (std::size_t row = 0; row < parts.rows.size(); ++row) {
    for (PanelPart& part : parts.rows[row]) {
      part.control->Show(open);
      if (!open) continue;
      part.control->Place(part.place(place.rows[row]));
      part.update();
    }
  }
}

void PanelView::Update() {
  layout_ = StackFunctions(host_.form.modules, Client().width, look_.scale);
  SetContentHeight(layout_.height);
  for (int module = 0; module < kModuleCount; ++module) PlaceModule(module);
}

void PanelView::TakeFocus() { SetFocus(modules_[0].expand->handle()); }

void PanelView::PaintModule(Painter& painter, int module) {
  const Theme& theme = look_.theme;
  const ModulePlace& place = layout_.modules[module];
  const double radius = look_.scale.Exact(6);
  painter.Round(place.card, radius, theme.card);
  painter.Outline(place.card, radius, 1, theme.border);
  const Box title = {place.header.x + look_.Px(2 * kGrid), place.header.y,
                     place.header.width - look_.Px(100), place.header.height};
  painter.Text(title, Wide(kModules[module].title), Face::kStrong,
               host_.form.modules.IsOpen(module) ? theme.text : theme.quiet, DT_LEFT | DT_NOPREFIX);
}

void PanelView::PaintContent(Painter& painter, const Box& client) {
  painter.Fill(client, look_.theme.page);
  for (int module = 0; module < kModuleCount; ++module) PaintModule(painter, module);
}

void PanelView::OnContentClick(int x, int y) {
  for (int module = 0; module < kModuleCount; ++module) {
    if (layout_.modules[module].header.Contains(x, y)) return Toggle(module);
  }
}

}  // namespace tarnwell
