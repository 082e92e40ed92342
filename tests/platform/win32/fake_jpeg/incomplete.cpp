// A library of the same file name that is another one: two of the three calls.
#include <windows.h>

extern "C" {

__declspec(dllexport) int __stdcall ijlInit(void*) { return 0; }
__declspec(dllexport) int __stdcall ijlFree(void*) { return 0; }

}  // extern "C"
