#include "ui/panel_view.h"

#include <windowsx.h>

#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/profile_selection.h"
#include "ui/buttons.h"
#include "ui/switch_control.h"
#include "ui/wide_text.h"

namespace tarnwell {
namespace {

constexpr int kSwitchWidth = 44;
constexpr int kScrollBarWidth = 12;
constexpr int kWheelStep = 6 * kGrid;

}  // namespace

PanelView::PanelView(const Look& look, PanelHost host)
    : look_(look), host_(std::move(host)), content_(*this), scroll_bar_(look) {}

PanelView::~PanelView() = default;

void PanelView::Create(HWND parent) {
  Make(kChildClass, L"Modules", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
       WS_EX_CONTROLPARENT, parent, {});
  content_.Create(handle());
  scroll_bar_.Create(handle());
  scroll_bar_.scrolled = [this](int offset) { ScrollTo(offset); };
  for (int module = 0; module < kModuleCount; ++module) MakeModule(module);
}

void PanelView::Content::Create(HWND parent) {
  Make(kChildClass, L"Modules", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
       WS_EX_CONTROLPARENT, parent, {});
}

void PanelView::MakeModule(int module) {
  ModuleParts& parts = modules_[module];
  Form1& form = host_.form;
  const std::wstring title = Wide(kModules[module].title);
  parts.expand = std::make_unique<SwitchControl>(look_);
  parts.expand->is_on = [&form, module] { return form.modules.IsOpen(module); };
  parts.expand->clicked = [this, module] { Toggle(module); };
  parts.expand->Create(content_.handle(), L"Open/ Close Module: " + title);
  parts.expand->SetTip(L"Open/ Close Module");

  parts.defaults = std::make_unique<Button>(look_, Ground::kCard, ButtonKind::kFlat, Glyph::kReset);
  parts.defaults->clicked = [this, &form, module] {
    host_.command([&] { DefaultValuesClick(form, module); });
  };
  parts.defaults->Create(content_.handle(), L"Default Values: " + title, /*text_shown=*/false);
  parts.defaults->SetTip(L"Default Values");

  for (const PanelRow& row : RowsOf(module)) {
    parts.rows.push_back(MakeRow(content_.handle(), look_, host_, row));
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
  const Box view = Client();
  layout_ = StackFunctions(host_.form.modules, view.width, look_.scale);
  offset_ = ClampScroll(offset_, layout_.height, view.height);
  content_.Place({0, -offset_, view.width, std::max(layout_.height, view.height)});
  for (int module = 0; module < kModuleCount; ++module) PlaceModule(module);
  const int bar = look_.Px(kScrollBarWidth);
  scroll_bar_.Place({view.width - bar - 1, look_.Px(4), bar, view.height - 2 * look_.Px(4)});
  scroll_bar_.Update(layout_.height, view.height, offset_);
  SetWindowPos(scroll_bar_.handle(), HWND_TOP, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void PanelView::ScrollTo(int offset) {
  offset_ = ClampScroll(offset, layout_.height, Client().height);
  content_.Place({0, -offset_, Client().width, std::max(layout_.height, Client().height)});
  scroll_bar_.Update(layout_.height, Client().height, offset_);
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void PanelView::Wheel(int delta) { ScrollTo(offset_ - delta * look_.Px(kWheelStep) / WHEEL_DELTA); }

void PanelView::TakeFocus() { SetFocus(modules_[0].expand->handle()); }

void PanelView::ShowChild(HWND child) {
  RECT rect = {};
  GetWindowRect(child, &rect);
  MapWindowPoints(nullptr, content_.handle(), reinterpret_cast<POINT*>(&rect), 2);
  const int margin = look_.Px(kGrid);
  const int wanted =
      ScrollToShow(offset_, rect.top - margin, rect.bottom + margin, Client().height);
  if (wanted != offset_) ScrollTo(wanted);
}

LRESULT PanelView::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_SIZE:
      Update();
      return 0;
    case WM_MOUSEWHEEL:
      Wheel(GET_WHEEL_DELTA_WPARAM(w));
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      const PaintScope paint(handle());
      Painter painter(paint.dc(), paint.area(), look_);
      painter.Fill(Client(), look_.theme.page);
      return 0;
    }
  }
  return Window::Handle(message, w, l);
}

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

LRESULT PanelView::Content::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      const PaintScope paint(handle());
      Painter painter(paint.dc(), paint.area(), panel_.look_);
      painter.Fill(Client(), panel_.look_.theme.page);
      for (int module = 0; module < kModuleCount; ++module) panel_.PaintModule(painter, module);
      return 0;
    }
    case WM_LBUTTONUP:
      for (int module = 0; module < kModuleCount; ++module) {
        if (!panel_.layout_.modules[module].header.Contains(GET_X_LPARAM(l), GET_Y_LPARAM(l))) {
          continue;
        }
        panel_.Toggle(module);
        break;
      }
      return 0;
    case kFocusArrived:
      panel_.ShowChild(reinterpret_cast<HWND>(w));
      return 0;
  }
  return Window::Handle(message, w, l);
}

}  // namespace tarnwell
