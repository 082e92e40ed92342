#include "platform/memory_limit.h"

#include "imaging/pixel_array.h"
#include "platform/system.h"

namespace tarnwell {

bool MemoryHoldsPicture(std::int64_t width, std::int64_t height) {
  if (width < 1 || width > kMaxSide || height < 1 || height > kMaxSide) return false;
  const std::uint64_t memory = SystemMemoryBytes();
  const auto bytes = static_cast<std::uint64_t>(width * height * kBytesPerPixel);
  return memory == 0 || bytes <= memory / 2;
}

}  // namespace tarnwell
