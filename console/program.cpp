#include "console/program.h"

namespace tarnwell {

int RunProgram(int, const char* const*) { return 2; }
#ifdef _WIN32
int RunProgram(int, const wchar_t* const*) { return 2; }
#endif

}  // namespace tarnwell
