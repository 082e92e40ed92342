#pragma once

#include <string>

#include "platform/status.h"

namespace tarnwell {

// What a call was about, so that a missing thing is named for what it is.
enum class Subject {
  kFile,       // an existing file
  kNewFile,    // a file to be made: what can be missing is the folder
  kFolder,     // an existing folder
  kNewFolder,  // a folder to be made: what can be missing is the one above
};

// The failure of a system call (an errno value) on `path`, which is in the program's spelling.
Status SystemError(int error, const std::string& path, Subject subject);

// A failure with a reason of our own.
Status PathError(Failure failure, const std::string& path, const std::string& reason);

}  // namespace tarnwell
