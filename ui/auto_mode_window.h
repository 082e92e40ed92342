#pragma once

#include "automation/auto_mode.h"
#include "ui/buttons.h"
#include "ui/frame_window.h"

namespace tarnwell {

// What the automated mode does now, and which photos it could not correct.
class AutoModeWindow : public FrameWindow {
 public:
  AutoModeWindow(const AutoMode& mode, const std::string& preset_path);
  void Open();
  void Update();

 protected:
  void LayOut(const Box& client) override;
  void PaintClient(Painter& painter, const Box& client) override;
  void OnConfirm() override { OnDismiss(); }

 private:
  std::wstring Details() const;

  const AutoMode& mode_;
  const std::string& preset_path_;
  Label lblStatus_;
  Label details_;
  Button close_;
};

}  // namespace tarnwell
