#pragma once

#include <cstdint>
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

// The failure for an error code of the system (GetLastError), as "FILE: reason". Common reasons in
// the program's own words, the others in the system's.
Status StatusOfError(const std::string& path, std::uint32_t code, Subject subject);

}  // namespace tarnwell
