#pragma once

namespace tarnwell {

struct Form1;
struct frmProgress;

// The progress window while a run lasts: shown at a stage, hidden at the end of the scope. Within
// another such scope the window that is there goes on.
class ProgressWindow {
 public:
  ProgressWindow(frmProgress& progress, int stage);
  ~ProgressWindow();
  ProgressWindow(const ProgressWindow&) = delete;
  ProgressWindow& operator=(const ProgressWindow&) = delete;

 private:
  frmProgress& progress_;
};

// Progress and cancelling of one pass over `width` columns, whatever parts it works in: columns
// count as done in the proportion of the parts. The percentage advances in half percents and is
// shown when it has moved by `minimum_step` since the last time. Window events run after every
// column, and after every part, so that Cancel is heard.
class PassProgress {
 public:
  PassProgress(Form1& form, int width, int parts, float minimum_step);

  // Tells that `done` parts (1 to all) are done. False when the user has cancelled.
  bool PartDone(int done);

 private:
  void ColumnDone();

  Form1& form_;
  int width_;
  int parts_;
  float minimum_step_;
  int columns_done_ = 0;
  float shown_ = 0;
};

}  // namespace tarnwell
