#include "platform/win32/memory_limit.h"

#include <cstdint>
#include <windows.h>

#include "imaging/pixel_array.h"

namespace tarnwell {

bool MemoryHoldsPicture(int width, int height) {
  MEMORYSTATUSEX memory = {};
  memory.dwLength = sizeof memory;
  if (!GlobalMemoryStatusEx(&memory)) return false;
  const std::uint64_t bytes = std::uint64_t{kBytesPerPixel} * width * height;
  return bytes <= memory.ullTotalPhys / 2;
}

}  // namespace tarnwell
