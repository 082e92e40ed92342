#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tarnwell {

enum class Fault {
  kNone,      // calls are only counted
  kDiskFull,  // one call fails: what writes finds no room, what reads finds a broken disk
  kNoAccess,  // this call and all behind it are refused
  kKilled,    // the process ends in the middle of the call
  kPowerCut,  // the same, and what was not flushed is gone
};

// What the file system cannot do, and what another program does meanwhile.
struct Limits {
  bool rename_replaces = false;  // renaming without replacing is not known
  bool folders_are_volumes = false;
  std::function<void()> on_flush = {};  // whenever a file is flushed
};

struct FileCall {
  std::string name;
  bool changes = false;  // whether the disk may be another one after it
};

// The system's file calls as the program makes them, so that each can be made to fail in turn. The
// linker puts these calls in the place of the real ones (tests/CMakeLists.txt); as long as none are
// watched, and outside the watched folder, they are the real ones.
class FaultyCalls {
 public:
  // Counts the calls on what lies in `folder` (a path of the system) from now on; number `at`,
  // counted from 0, meets `fault`. One at a time.
  FaultyCalls(const std::string& folder, Fault fault, int at, const Limits& limits = {});
  ~FaultyCalls();

  // The planned end of the process, for one that has done its work before it came.
  [[noreturn]] static void EndProcess();

  const std::vector<FileCall>& calls() const;  // until now
};

inline constexpr int kEndedByFault = 77;  // the exit code of such a process

}  // namespace tarnwell
