#pragma once

#include <string>
#include <utility>

#include "console/terminal_line.h"
#include "shell/frm_progress.h"

namespace tarnwell {

// The progress window of a terminal: one line that is drawn again and again in place, and wiped
// when the window is hidden.
class ProgressBar : public ProgressView {
 public:
  explicit ProgressBar(TerminalLine line) : line_(std::move(line)) {}
  ~ProgressBar() override { HideWindow(); }

  void ShowWindow() override;
  void HideWindow() override;
  void DrawBar(float percentage) override;
  void ShowText(const std::string& lblJob) override;
  void ShowTimeLeft(const std::string& time_left) override;

 private:
  void Draw();

  TerminalLine line_;
  std::string text_;
  std::string time_left_;
  int percent_ = 0;
  bool shown_ = false;
};

}  // namespace tarnwell
