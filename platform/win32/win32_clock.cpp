#include "platform/win32/win32_clock.h"

#include <windows.h>

namespace tarnwell {

std::int64_t Win32Clock::Nanos() {
  LARGE_INTEGER ticks, per_second;
  QueryPerformanceCounter(&ticks);
  QueryPerformanceFrequency(&per_second);
  const std::int64_t seconds = ticks.QuadPart / per_second.QuadPart;
  const std::int64_t rest = ticks.QuadPart % per_second.QuadPart;
  return seconds * 1'000'000'000 + rest * 1'000'000'000 / per_second.QuadPart;
}

}  // namespace tarnwell
