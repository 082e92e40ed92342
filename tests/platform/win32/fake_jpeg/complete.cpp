// An external JPEG library for tests: records nothing, encodes nothing, but shows in its answers
// that the record and the mode arrive.
#include <windows.h>

#include "imaging/jpeg_library.h"

using tarnwell::JPEG_CORE_PROPERTIES;

extern "C" {

__declspec(dllexport) int __stdcall ijlInit(JPEG_CORE_PROPERTIES* record) {
  record->jquality = 42;
  return 0;
}

__declspec(dllexport) int __stdcall ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) {
  return record->JPGWidth * 100 + mode;
}

__declspec(dllexport) int __stdcall ijlFree(JPEG_CORE_PROPERTIES* record) {
  record->jquality = 0;
  return 0;
}

}  // extern "C"
