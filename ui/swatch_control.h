#pragma once

#include "modules/frm_modules.h"
#include "ui/control.h"

namespace tarnwell {

// A patch of colour. Its name tells the colour too.
class SwatchControl : public Control {
 public:
  explicit SwatchControl(const Look& look) : Control(look) {}
  void Create(HWND parent, const std::wstring& name);
  void SetColour(const Rgb& colour);

 protected:
  void Paint(Painter& painter, const Box& client) override;

 private:
  Rgb colour_;
};

}  // namespace tarnwell
