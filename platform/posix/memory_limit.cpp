#include "platform/posix/memory_limit.h"

#include <unistd.h>

#include "imaging/pixel_array.h"

namespace tarnwell {

bool MemoryHoldsPicture(std::int64_t width, std::int64_t height) {
  if (width < 1 || width > kMaxSide || height < 1 || height > kMaxSide) return false;
  const std::int64_t memory =
      std::int64_t{sysconf(_SC_PHYS_PAGES)} * std::int64_t{sysconf(_SC_PAGESIZE)};
  return width * height * kBytesPerPixel <= memory / 2;
}

}  // namespace tarnwell
