#include "console/progress_bar.h"

#include <algorithm>

namespace tarnwell {
namespace {

constexpr int kBarWidth = 30;

}  // namespace

void ProgressBar::ShowWindow() {
  shown_ = true;
  Draw();
}

void ProgressBar::HideWindow() {
  if (shown_) line_.Wipe();
  shown_ = false;
}

void ProgressBar::DrawBar(float percentage) {
  const int percent = std::clamp(static_cast<int>(percentage), 0, 100);
  if (percent == percent_) return;
  percent_ = percent;
  Draw();
}

void ProgressBar::ShowText(const std::string& lblJob) {
  text_ = lblJob;
  Draw();
}

void ProgressBar::ShowTimeLeft(const std::string& time_left) {
  time_left_ = time_left;
  Draw();
}

void ProgressBar::Draw() {
  if (!shown_) return;
  line_.Draw(PercentBar(percent_, kBarWidth) + "  " + text_ +
             (time_left_.empty() ? "" : " " + time_left_));
}

}  // namespace tarnwell
