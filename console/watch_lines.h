#pragma once

#include <mutex>
#include <ostream>
#include <string>

#include "automation/auto_mode.h"
#include "console/console_host.h"
#include "console/terminal_line.h"

namespace tarnwell {

// What a watch says on standard error: a line for each photo, for each failure, and for every time
// it begins to wait. On a terminal the status text of the moment stands below the lines, drawn
// again and again in place. All calls may come from any thread.
class WatchLines {
 public:
  // `quiet`: failures only.
  WatchLines(ConsoleHost& host, bool quiet)
      : err_(host.err),
        line_(host.err, host.columns),
        drawn_(host.err_is_terminal && !quiet),
        quiet_(quiet) {}
  ~WatchLines();

  void ShowStatus(const std::string& text, AutoActivity activity);
  void Report(const std::string& line);
  void PhotoDone(const std::string& name, const std::string& shown_path);

 private:
  void Write(const std::string& line);

  std::ostream& err_;
  TerminalLine line_;
  const bool drawn_;
  const bool quiet_;
  std::mutex mutex_;
  std::string status_;  // as it stands on the terminal
};

}  // namespace tarnwell
