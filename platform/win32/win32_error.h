#pragma once

#include <cstdint>
#include <string>

#include "platform/file_reason.h"

namespace tarnwell {

// The failure for an error code of the system (GetLastError), as "FILE: reason". Common reasons in
// the program's own words, the others in the system's.
Status StatusOfError(const std::string& path, std::uint32_t code, Subject subject);

}  // namespace tarnwell
