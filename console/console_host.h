#pragma once

#include <functional>
#include <ostream>

#include "platform/status.h"

namespace tarnwell {

// What a command is given of the console that it runs in.
struct ConsoleHost {
  std::ostream& out;
  std::ostream& err;
  bool err_is_terminal = false;  // progress and hints are shown only there
  // True from the moment on in which the user asked to stop. May be asked from several threads.
  std::function<bool()> interrupted = [] { return false; };
  std::function<int()> columns = [] { return 80; };  // of that terminal, at the moment
};

// How commands end.
enum ExitCode : int { kDone = 0, kSomePhotoFailed = 1, kWrongUsage = 2, kInterrupted = 130 };

// How a command ends that could not begin because of `why`: by its words, unless the disk or the
// rights are at fault.
inline int CodeOfRefusal(const Status& why) {
  const bool by_the_disk = why.failure == Failure::kDiskFull || why.failure == Failure::kNoAccess;
  return by_the_disk ? kSomePhotoFailed : kWrongUsage;
}

}  // namespace tarnwell
