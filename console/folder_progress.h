#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <ostream>
#include <string>

#include "console/terminal_line.h"
#include "shell/frm_progress.h"

namespace tarnwell {

class Clock;
struct ConsoleHost;

// The progress of a whole folder as one line of a terminal, drawn again and again in place: how far
// the photo in hand is, which one it is of how many, and how long the rest will take. Where several
// photos are in hand the line follows the one that was begun last. All calls may come from any
// thread.
class FolderProgress {
 public:
  // `drawn`: whether there is a terminal to draw on; only lines of text are written otherwise.
  FolderProgress(ConsoleHost& host, bool drawn, Clock& clock, std::size_t total);
  ~FolderProgress();

  // Photo `number`, from 1, is begun. The view is the photo's progress window.
  std::unique_ptr<ProgressView> Begin(std::size_t number, const std::string& name);
  void Done();

  // Writes a line of text above the progress.
  void Tell(const std::string& line);

 private:
  class PhotoView;
  void Draw();

  std::ostream& terminal_;
  TerminalLine line_;
  const bool drawn_;
  Clock& clock_;
  const std::size_t total_;
  const std::int64_t started_;
  std::mutex mutex_;
  std::size_t shown_ = 0;  // the photo that was begun last
  std::size_t done_ = 0;
  int percent_ = 0;
  std::string name_;
};

}  // namespace tarnwell
