#pragma once

namespace tarnwell {

struct Form1;
struct frmProgress;

// The progress window while a run lasts: shown at a stage, hidden at the end of the scope.
class ProgressWindow {
 public:
  ProgressWindow(frmProgress& progress, int stage);
  ~ProgressWindow();
  ProgressWindow(const ProgressWindow&) = delete;
  ProgressWindow& operator=(const ProgressWindow&) = delete;

 private:
  frmProgress& progress_;
};

// Progress and cancelling of one pass over `width` columns. The percentage advances in half
// percents and is shown when it has moved by `minimum_step` since the last time. Window events run
// after every column, so that Cancel is heard.
class PassProgress {
 public:
  PassProgress(Form1& form, int width, float minimum_step);

  // Tells that `done` columns (1 to width) are done. False when the user has cancelled.
  bool ColumnDone(int done);

 private:
  Form1& form_;
  int width_;
  float minimum_step_;
  float shown_ = 0;
};

}  // namespace tarnwell
