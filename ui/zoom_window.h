#pragma once

#include <functional>

#include "modules/frm_zoom.h"
#include "ui/buttons.h"
#include "ui/display_colours.h"
#include "ui/frame_window.h"
#include "ui/swatch_control.h"

namespace tarnwell {

class PendingEvents;

// The photo at full size, to look at or to pick a colour from.
class ZoomWindow : public FrameWindow {
 public:
  struct Models {
    frmZoom& zoom;
    frmModules& panel;
    frmSkinTones& skin_tones;
    PendingEvents& events;
    const SharedMetadata& metadata;  // of the photo
  };
  ZoomWindow(HWND owner, Models models);
  void Open();  // shows what the model was opened for
  void Dismiss() { OnDismiss(); }

  // After a pick (true) or a close; other windows show anew.
  std::function<void(bool picked)> closed = [](bool) {};

 protected:
  void LayOut(const Box& client) override;
  void OnDismiss() override;
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  // The photo itself; takes pointer and keys.
  class Container : public Control {
   public:
    explicit Container(ZoomWindow& window);
    void Create(HWND parent);

   protected:
    void Paint(Painter& painter, const Box& client) override;
    // The space bar and Enter pick as they press a button.
    LRESULT WantedKeys() const override {
      return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON | DLGC_WANTARROWS;
    }
    void OnClick() override;
    bool OnKey(WPARAM key) override;
    LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

   private:
    void PaintCross(Painter& painter, ZoomPoint at);
    bool HandleButton(UINT message, ZoomPoint point);
    ZoomWindow& window_;
  };

  void Wheel(bool across, int delta);
  void Changed();  // the model has changed
  void Hide(bool picked);

  Models models_;
  ColoursOnScreen colours_;
  Container container_;
  Label instruction_;
  SwatchControl lblColor_;
  int wheel_across_ = 0;  // what has been turned since the last step
  int wheel_down_ = 0;
};

}  // namespace tarnwell
