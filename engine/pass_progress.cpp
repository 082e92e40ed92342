#include "engine/pass_progress.h"

#include <algorithm>
#include <cstdint>

#include "engine/rounding.h"
#include "platform/clock.h"
#include "platform/events.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/module1.h"
#include "shell/time_left.h"

namespace tarnwell {
namespace {

// Words that change more often would not be calm.
constexpr std::int64_t kTellingNanos = 2'000'000'000;

}  // namespace

ProgressWindow::ProgressWindow(frmProgress& progress, int stage) : progress_(progress) {
  ShowPercentage(progress_, 0);
  ShowStage(progress_, stage);
  Show();
}

ProgressWindow::ProgressWindow(frmProgress& progress, const std::string& job)
    : progress_(progress) {
  ShowPercentage(progress_, 0);
  ShowJob(progress_, job);
  Show();
}

void ProgressWindow::Show() {
  if (progress_.windows++ > 0) return;
  progress_.cancel_pressed = false;
  if (progress_.view) progress_.view->ShowWindow();
}

ProgressWindow::~ProgressWindow() {
  if (--progress_.windows == 0 && progress_.view) progress_.view->HideWindow();
}

bool LetEventsIn(Form1& form) {
  form.platform.events.Run();
  return !form.app.cancel_requested;
}

PassProgress::PassProgress(Form1& form, int width, int parts, float minimum_step)
    : PassProgress(form, width, parts, minimum_step, parts) {}

PassProgress::PassProgress(Form1& form, int width, int parts, float minimum_step, int long_parts)
    : form_(form),
      width_(width),
      parts_(parts),
      minimum_step_(minimum_step),
      long_parts_(long_parts),
      started_(form.platform.clock.Nanos()),
      told_(started_) {
  ShowPercentage(form_.progress, 0);
}

PassProgress::~PassProgress() { ShowTimeLeft(form_.progress, {}); }

void PassProgress::TellTimeLeft(int done) {
  const std::int64_t now = form_.platform.clock.Nanos();
  if (now - told_ < kTellingNanos) return;
  told_ = now;
  const double share = std::min(1.0 * done / long_parts_, 1.0);
  ShowTimeLeft(form_.progress, AboutTimeLeft(share, now - started_));
}

bool PassProgress::PartDone(int done) {
  TellTimeLeft(done);
  const auto columns = static_cast<int>(std::int64_t{done} * width_ / parts_);
  if (columns == columns_done_) form_.platform.events.Run();
  while (columns_done_ < columns && !form_.app.cancel_requested) ColumnDone();
  return !form_.app.cancel_requested;
}

void PassProgress::ColumnDone() {
  ++columns_done_;
  const auto percentage = static_cast<float>(RoundHalfToEven(200.0 * columns_done_ / width_) / 2);
  if (percentage >= shown_ + minimum_step_) {
    shown_ = percentage;
    ShowPercentage(form_.progress, percentage);
  }
  form_.platform.events.Run();
}

}  // namespace tarnwell
