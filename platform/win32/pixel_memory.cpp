#include "platform/pixel_memory.h"

#include <cstdlib>

namespace tarnwell {

// Large pages need a right here that few users have.
std::uint8_t* TakePixelMemory(std::size_t bytes) {
  return static_cast<std::uint8_t*>(std::calloc(bytes, 1));
}

void ReturnPixelMemory(std::uint8_t* memory, std::size_t) { std::free(memory); }

}  // namespace tarnwell
