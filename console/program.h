#pragma once

#include <string>
#include <vector>

namespace tarnwell {

struct ConsoleHost;

// The console program: reads the words behind the program's name (UTF-8), does the work and returns
// the exit code: 0 all done, 1 some photo failed, 2 wrong usage, 130 interrupted.
int RunProgram(const std::vector<std::string>& words, ConsoleHost& host);

}  // namespace tarnwell
