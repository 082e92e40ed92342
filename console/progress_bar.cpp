#include "console/progress_bar.h"

#include <algorithm>
#include <iomanip>

namespace tarnwell {
namespace {

constexpr int kBarWidth = 30;
constexpr char kWipeLine[] = "\r\x1b[K";

}  // namespace

void ProgressBar::ShowWindow() {
  shown_ = true;
  Draw();
}

void ProgressBar::HideWindow() {
  if (shown_) terminal_ << kWipeLine << std::flush;
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
  const int filled = percent_ * kBarWidth / 100;
  terminal_ << kWipeLine << "[" << std::string(filled, '#') << std::string(kBarWidth - filled, '.')
            << "] " << std::setw(3) << percent_ << " %  " << text_
            << (time_left_.empty() ? "" : " " + time_left_) << std::flush;
}

}  // namespace tarnwell
