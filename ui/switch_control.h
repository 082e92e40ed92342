#pragma once

#include "ui/control.h"

namespace tarnwell {

// A switch at a module's header: on while the module is open. It shows what `is_on` says.
class SwitchControl : public Control {
 public:
  explicit SwitchControl(const Look& look) : Control(look) {}
  void Create(HWND parent, const std::wstring& name);
  void Update();

  std::function<bool()> is_on = [] { return false; };
  std::function<void()> clicked = [] {};

 protected:
  void Paint(Painter& painter, const Box& client) override;
  void OnClick() override { clicked(); }
};

}  // namespace tarnwell
