#include "shell/frm_progress.h"

#include "platform/events.h"

namespace tarnwell {
namespace {

// The text of a stage that has one of its own; null otherwise.
const char* TextOf(int stage) {
  switch (stage) {
    case kCollecting:
      return kCollectingText;
    case kAnalyzing:
      return "Analyzing...";
    case kAdjusting:
    case kAdjustingFull:
      return "Adjusting Photo...";
    case kRotatingHue:
      return "Rotating Hue...";
    default:
      return nullptr;
  }
}

}  // namespace

void ShowStage(frmProgress& progress, int stage) {
  progress.stage = stage;
  // Going back shows an earlier stage; that one stays the one to go back to, however often.
  const int shown = stage == kPreviousStage ? progress.previous_stage : stage;
  if (const char* text = TextOf(shown)) progress.lblJob = text;
  progress.previous_stage = shown;
  if (progress.view) progress.view->ShowText(progress.lblJob);
}

void ShowJob(frmProgress& progress, const std::string& job) {
  progress.lblJob = job;
  if (progress.view) progress.view->ShowText(progress.lblJob);
}

void ShowTimeLeft(frmProgress& progress, const std::string& time_left) {
  if (progress.time_left == time_left) return;
  progress.time_left = time_left;
  if (progress.view) progress.view->ShowTimeLeft(time_left);
}

void ShowPercentage(frmProgress& progress, float percentage) {
  progress.percentage = percentage;
  if (progress.view) progress.view->DrawBar(percentage);
}

void Timer1_Tick(frmProgress& progress) {
  float percentage = progress.percentage + 0.5f;
  if (percentage > 100) {
    percentage = 0;
    const int next = progress.stage + 1;
    ShowStage(progress, next > kAdjusting ? kCollecting : next);
  }
  ShowPercentage(progress, percentage);
  progress.timer_interval = 20;
}

void CancelClicked(frmProgress& progress, bool& cancel_requested, PendingEvents& events) {
  events.Run();
  progress.cancel_pressed = true;
  cancel_requested = true;
  // The running correction sees the flag at its next column.
  events.Run();
}

}  // namespace tarnwell
