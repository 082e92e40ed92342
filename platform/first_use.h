#pragma once

#include <string>

namespace tarnwell {

// True for the first call of this process with this folder. May be called from any thread.
bool IsFirstUseOf(const std::string& folder);

}  // namespace tarnwell
