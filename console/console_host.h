#pragma once

#include <functional>
#include <ostream>

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

}  // namespace tarnwell
