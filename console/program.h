#pragma once

namespace tarnwell {

// The console program: reads the words, does the work, returns the exit code (0 all done, 1 some
// photo failed, 2 wrong usage).
int RunProgram(int argc, const char* const* argv);
#ifdef _WIN32
int RunProgram(int argc, const wchar_t* const* argv);
#endif

}  // namespace tarnwell
