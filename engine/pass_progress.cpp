#include "engine/pass_progress.h"

#include <cstdint>

#include "engine/rounding.h"
#include "platform/events.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/module1.h"

namespace tarnwell {

ProgressWindow::ProgressWindow(frmProgress& progress, int stage) : progress_(progress) {
  ShowPercentage(progress_, 0);
  ShowStage(progress_, stage);
  if (progress_.windows++ == 0 && progress_.view) progress_.view->ShowWindow();
}

ProgressWindow::~ProgressWindow() {
  if (--progress_.windows == 0 && progress_.view) progress_.view->HideWindow();
}

PassProgress::PassProgress(Form1& form, int width, int parts, float minimum_step)
    : form_(form), width_(width), parts_(parts), minimum_step_(minimum_step) {
  ShowPercentage(form_.progress, 0);
}

bool PassProgress::PartDone(int done) {
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
