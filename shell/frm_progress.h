#pragma once

#include <string>

namespace tarnwell {

class PendingEvents;

// The progress window's model. The correction writes stage and percentage; a view, if there is one,
// draws lblJob and the bar when it is told.
class ProgressView {
 public:
  virtual ~ProgressView() = default;
  virtual void ShowWindow() = 0;
  virtual void HideWindow() = 0;
  virtual void DrawBar(float percentage) = 0;
  virtual void ShowText(const std::string& lblJob) = 0;
  virtual void ShowTimeLeft(const std::string&) {}
};

enum Stage : int {
  kCollecting = 0,
  kAnalyzing = 1,
  kAdjusting = 2,
  kAdjustingFull = 3,
  kRotatingHue = 4,
  kPreviousStage = 5,  // shows the previous stage's text again
};

struct frmProgress {
  float percentage = 0;  // 0 to 100
  int stage = kCollecting;
  int previous_stage = kCollecting;
  std::string caption;
  std::string lblJob;
  std::string lblFolder;         // which photo of how many; empty when there is only one
  std::string time_left;         // of a job that takes long, in words; empty otherwise
  int windows = 0;               // how many scopes keep the window up
  bool cancel_pressed = false;   // picCancel is drawn pressed
  int timer_interval = 20;       // Timer1, milliseconds
  ProgressView* view = nullptr;  // not owned; null when nobody looks
};

// The caption while the photo of this name is worked at.
inline std::string ProgressCaption(const std::string& name) { return "Progress - " + name; }

inline constexpr char kCollectingText[] = "Collecting Information...";

// Sets lblJob from the stage; a number without a text leaves it. The previous stage follows.
void ShowStage(frmProgress& progress, int stage);

// Sets lblJob to a text of a job that is no stage. The stage stays.
void ShowJob(frmProgress& progress, const std::string& job);

// Shows how long the job will still take, empty for not.
void ShowTimeLeft(frmProgress& progress, const std::string& time_left);

// Redraws the bar at `percentage`.
void ShowPercentage(frmProgress& progress, float percentage);

// One tick of the animation timer: half a percent on; beyond 100 the next of the stages 0 to 2
// starts at 0.
void Timer1_Tick(frmProgress& progress);

// picCancel was clicked: sets `cancel_requested`, letting pending events run before and after.
void CancelClicked(frmProgress& progress, bool& cancel_requested, PendingEvents& events);

}  // namespace tarnwell
