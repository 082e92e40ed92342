#pragma once

#include "modules/frm_modules.h"
#include "ui/control.h"

namespace tarnwell {

// The round field of the hue picker, with its marker.
class HueField : public Control {
 public:
  explicit HueField(const Look& look) : Control(look) {}
  void Create(HWND parent);
  void Update();

  std::function<HuePicker()> read = [] { return HuePicker(); };
  std::function<void(int, int)> moved = [](int, int) {};  // to this point of the 106 x 106 field

 protected:
  void Paint(Painter& painter, const Box& client) override;
  void OnPress(int x, int y) override { Drag(x, y); }
  void OnDrag(int x, int y) override { Drag(x, y); }
  bool OnKey(WPARAM key) override;
  LRESULT WantedKeys() const override { return DLGC_WANTARROWS; }

 private:
  void Drag(int x, int y);
  const Picture& Wheel(int side);

  Picture wheel_;
  Colour wheel_ground_;
};

}  // namespace tarnwell
