#pragma once

#include <functional>

#include "ui/buttons.h"
#include "ui/frame_window.h"

namespace tarnwell {

// What the program is, and the switch for its menu of power toys.
class AboutWindow : public FrameWindow {
 public:
  AboutWindow(HWND owner, bool& power_toys, std::function<void()> toggle_power_toys);
  void Open();

 protected:
  void LayOut(const Box& client) override;
  void PaintClient(Painter& painter, const Box& client) override;
  void OnConfirm() override { OnDismiss(); }

 private:
  Box IconBox() const;

  Label name_;
  Label version_;
  Label purpose_;
  CheckBox power_toys_;
  Button close_;
};

}  // namespace tarnwell
