#pragma once

#include <string>

#include "platform/file_reason.h"

namespace tarnwell {

// The failure of a system call (an errno value) on `path`, which is in the program's spelling.
Status SystemError(int error, const std::string& path, Subject subject);

// A failure with a reason of our own.
Status PathError(Failure failure, const std::string& path, const std::string& reason);

}  // namespace tarnwell
