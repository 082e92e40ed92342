#include "console/program.h"

#ifdef _WIN32
// The console of Windows hands wide words over.
int wmain(int argc, wchar_t** argv) { return tarnwell::RunProgram(argc, argv); }
#else
int main(int argc, char** argv) { return tarnwell::RunProgram(argc, argv); }
#endif
