#pragma once

#include "ui/buttons.h"
#include "ui/frame_window.h"

namespace tarnwell {

struct Tips;

// The tips, one at a time, to leaf through. It does not hold up the program.
class TipsWindow : public FrameWindow {
 public:
  TipsWindow(HWND owner, Tips& tips);
  // Takes the keyboard when the user has asked for the tip.
  void Open(int tip, bool asked_for);

 protected:
  void LayOut(const Box& client) override;
  void PaintClient(Painter& painter, const Box& client) override;
  void OnConfirm() override { OnDismiss(); }

 private:
  void ShowTip(int tip);
  Box IconBox() const;

  Tips& tips_;
  int tip_ = 1;
  Label heading_;
  Label text_;
  CheckBox hide_this_;
  CheckBox hide_all_;
  Button back_;
  Button next_;
  Button close_;
};

}  // namespace tarnwell
