#include "console/watch_lines.h"

#include "console/console_dialogs.h"
#include "console/terminal_line.h"

namespace tarnwell {

WatchLines::~WatchLines() {
  if (drawn_) err_ << kWipeLine << std::flush;
}

void WatchLines::ShowStatus(const std::string& text, AutoActivity activity) {
  const std::lock_guard lock(mutex_);
  if (drawn_) {
    status_ = OneLine(text);
    err_ << kWipeLine << status_ << std::flush;
  } else if (!quiet_ && activity == AutoActivity::kWaiting) {
    Write(OneLine(text));
  }
}

void WatchLines::Report(const std::string& line) {
  const std::lock_guard lock(mutex_);
  Write(OneLine(line));
}

void WatchLines::PhotoDone(const std::string& name, const std::string& shown_path) {
  const std::lock_guard lock(mutex_);
  if (!quiet_) Write(name + " " + kSavingText + " " + shown_path);
}

void WatchLines::Write(const std::string& line) {
  if (drawn_) err_ << kWipeLine;
  err_ << line << std::endl;
  if (drawn_) err_ << status_ << std::flush;
}

}  // namespace tarnwell
