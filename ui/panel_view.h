#pragma once

#include <array>
#include <memory>
#include <vector>

#include "ui/panel_rows.h"
#include "ui/scroll_bar.h"
#include "ui/window.h"

namespace tarnwell {

class Button;
class SwitchControl;

// The module panel: fourteen modules that open and close, in a view that scrolls.
class PanelView : public Window {
 public:
  PanelView(const Look& look, PanelHost host);
  ~PanelView() override;
  void Create(HWND parent);

  void Update();  // settings or size have changed: stack, place and show everything anew
  void Wheel(int delta);
  void TakeFocus();  // to the first control

 protected:
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  // What scrolls: one tall child that carries the modules' controls.
  class Content : public Window {
   public:
    explicit Content(PanelView& panel) : panel_(panel) {}
    void Create(HWND parent);

   protected:
    LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

   private:
    PanelView& panel_;
  };

  struct ModuleParts {
    std::unique_ptr<SwitchControl> expand;
    std::unique_ptr<Button> defaults;
    std::vector<std::vector<PanelPart>> rows;
  };

  void MakeModule(int module);
  void PlaceModule(int module);
  void PaintModule(Painter& painter, int module);
  void Toggle(int module);
  void ScrollTo(int offset);
  void ShowChild(HWND child);

  const Look& look_;
  PanelHost host_;
  Content content_;
  ScrollBar scroll_bar_;
  std::array<ModuleParts, kModuleCount> modules_;
  PanelLayout layout_;
  int offset_ = 0;
};

}  // namespace tarnwell
