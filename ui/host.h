#pragma once

#include <string>

namespace tarnwell {

// The Windows program from start to end. `command_line` is what stands behind the program's name.
// Returns the exit code.
int RunWindows(const std::wstring& command_line);

}  // namespace tarnwell
