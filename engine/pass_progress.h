#pragma once

#include <cstdint>
#include <string>

namespace tarnwell {

struct Form1;
struct frmProgress;

// The progress window while a run lasts: shown at a stage, hidden at the end of the scope. Within
// another such scope the window that is there goes on.
class ProgressWindow {
 public:
  ProgressWindow(frmProgress& progress, int stage);
  // At a job that is no stage of a correction.
  ProgressWindow(frmProgress& progress, const std::string& job);
  ~ProgressWindow();
  ProgressWindow(const ProgressWindow&) = delete;
  ProgressWindow& operator=(const ProgressWindow&) = delete;

 private:
  void Show();

  frmProgress& progress_;
};

// Lets events in. False when the user has cancelled.
bool LetEventsIn(Form1& form);

// Progress and cancelling of one pass over `width` columns, whatever parts it works in: columns
// count as done in the proportion of the parts. The percentage advances in half percents and is
// shown when it has moved by `minimum_step` since the last time. When the pass takes long the time
// that is left is told. Window events run after every
// column, and after every part, so that Cancel is heard.
class PassProgress {
 public:
  // `long_parts`: how many of the first parts take nearly all of the time; what is said of the time
  // that is left goes by these.
  PassProgress(Form1& form, int width, int parts, float minimum_step);
  PassProgress(Form1& form, int width, int parts, float minimum_step, int long_parts);
  ~PassProgress();
  PassProgress(const PassProgress&) = delete;
  PassProgress& operator=(const PassProgress&) = delete;

  // Tells that `done` parts (1 to all) are done. False when the user has cancelled.
  bool PartDone(int done);

 private:
  void ColumnDone();
  void TellTimeLeft(int done);

  Form1& form_;
  int width_;
  int parts_;
  float minimum_step_;
  int long_parts_;
  std::int64_t started_;
  std::int64_t told_;  // when the time that is left was told last
  int columns_done_ = 0;
  float shown_ = 0;
};

}  // namespace tarnwell
