#pragma once

#include "ui/frame_window.h"

namespace tarnwell {

// A line above the notification area that goes away on its own and takes no focus.
class NotificationPanel : public FrameWindow {
 public:
  NotificationPanel();
  void ShowFor(const std::string& text, int milliseconds);

 protected:
  void LayOut(const Box&) override {}
  void PaintClient(Painter& painter, const Box& client) override;
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  std::wstring text_;
};

}  // namespace tarnwell
