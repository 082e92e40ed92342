#pragma once

#include <optional>

#include "shell/frm_progress.h"
#include "ui/buttons.h"
#include "ui/frame_window.h"
#include "ui/others_disabled.h"
#include "ui/progress_bar.h"

namespace tarnwell {

class PendingEvents;

// The window over a correction that runs: stage, bar, Cancel.
class ProgressBox : public FrameWindow, public ProgressView {
 public:
  ProgressBox(frmProgress& progress, bool& cancel_requested, PendingEvents& events);
  void Create(HWND owner);

  void ShowWindow() override;
  void HideWindow() override;
  void DrawBar(float percentage) override;
  void ShowText(const std::string& lblJob) override;
  void ShowTimeLeft(const std::string& time_left) override;

 protected:
  void LayOut(const Box& client) override;
  void OnDismiss() override { Cancel(); }
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  void ShowNote();
  void ShowCancel(bool pressed);
  void Cancel();
  void Animate();
  void ComeUpWhenDue();

  frmProgress& progress_;
  bool& cancel_requested_;
  PendingEvents& events_;
  Label lblJob_;
  ProgressBar bar_;
  Label lblFolder_;
  Button picCancel_;
  bool running_ = false;
  std::optional<OthersDisabled> others_;
  HWND active_before_ = nullptr;
  ULONGLONG started_ = 0;
  ULONGLONG last_report_ = 0;
};

}  // namespace tarnwell
