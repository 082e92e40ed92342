#pragma once

#include <array>
#include <memory>
#include <vector>

#include "ui/panel_rows.h"
#include "ui/scroll_view.h"

namespace tarnwell {

class Button;
class SwitchControl;

// The module panel: fourteen modules that open and close, in a view that scrolls.
class PanelView : public ScrollView {
 public:
  PanelView(const Look& look, PanelHost host);
  ~PanelView() override;
  void Create(HWND parent);

  void Update();     // settings or size have changed: stack, place and show everything anew
  void TakeFocus();  // to the first control

 protected:
  void OnSized() override { Update(); }
  void PaintContent(Painter& painter, const Box& client) override;
  void OnContentClick(int x, int y) override;

 private:
  struct ModuleParts {
    std::unique_ptr<SwitchControl> expand;
    std::unique_ptr<Button> defaults;
    std::vector<std::vector<PanelPart>> rows;
  };

  void MakeModule(int module);
  void PlaceModule(int module);
  void PaintModule(Painter& painter, int module);
  void Toggle(int module);

  PanelHost host_;
  std::array<ModuleParts, kModuleCount> modules_;
  PanelLayout layout_;
};

}  // namespace tarnwell
