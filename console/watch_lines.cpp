#include "console/watch_lines.h"

#include "console/shown_text.h"
#include "imaging/output_names.h"

namespace tarnwell {

WatchLines::~WatchLines() {
  if (drawn_) line_.Wipe();
}

void WatchLines::ShowStatus(const std::string& text, AutoActivity activity) {
  const std::lock_guard lock(mutex_);
  if (drawn_) {
    status_ = OneLine(text);
    line_.Draw(status_);
  } else if (!quiet_ && activity == AutoActivity::kWaiting) {
    Write(text);
  }
}

void WatchLines::Report(const std::string& line) {
  const std::lock_guard lock(mutex_);
  Write(line);
}

void WatchLines::PhotoDone(const std::string& name, const std::string& shown_path) {
  const std::lock_guard lock(mutex_);
  if (quiet_) return;
  Write(name + " " + kSavingText + " " + shown_path + HowWritten(shown_path));
}

void WatchLines::Write(const std::string& line) {
  if (drawn_) line_.Wipe();
  TellLine(err_, line);
  if (drawn_) line_.Draw(status_);
}

}  // namespace tarnwell
