#include "platform/pixel_memory.h"

#include <cstdlib>
#include <sys/mman.h>

namespace tarnwell {
namespace {

constexpr std::size_t kLargePage = std::size_t{2} << 20;

// Sanitizers watch the borders of what calloc gives, and of nothing else.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kMaps = false;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool kMaps = false;
#else
constexpr bool kMaps = true;
#endif
#else
constexpr bool kMaps = true;
#endif

// Smaller pictures share the heap's pages; a larger one would leave a hole there when it ends.
constexpr std::size_t kLeastMapped = std::size_t{64} << 10;

bool IsMapped(std::size_t bytes) { return kMaps && bytes >= kLeastMapped; }

// A last large page that would be half full is taken whole: touching hundreds of small ones costs
// more than clearing the rest of it. Small pictures could not fill one.
std::size_t MappedBytes(std::size_t bytes) {
  const std::size_t rest = bytes % kLargePage;
  return bytes < kLargePage ? bytes : rest > kLargePage / 2 ? bytes - rest + kLargePage : bytes;
}

// Null when there is not enough.
void* Map(std::size_t bytes) {
  void* mapped = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  return mapped == MAP_FAILED ? nullptr : mapped;
}

}  // namespace

std::uint8_t* TakePixelMemory(std::size_t bytes) {
  if (!IsMapped(bytes)) return static_cast<std::uint8_t*>(std::calloc(bytes, 1));
  if (bytes < kLargePage) return static_cast<std::uint8_t*>(Map(bytes));
  // Large pages lie at multiples of their size: room for the first of them to be found.
  const std::size_t wanted = MappedBytes(bytes), room = wanted + kLargePage;
  if (wanted < bytes || room < wanted) return nullptr;
  void* mapped = Map(room);
  if (mapped == nullptr) return nullptr;
  const auto start = reinterpret_cast<std::uintptr_t>(mapped);
  const std::uintptr_t first = (start + kLargePage - 1) & ~(kLargePage - 1);
  if (first > start) munmap(mapped, first - start);
  const std::uintptr_t end = first + wanted;
  const std::uintptr_t page_end = (end + 4095) & ~std::uintptr_t{4095};
  if (start + room > page_end) {
    munmap(reinterpret_cast<void*>(page_end), start + room - page_end);
  }
  // A system without large pages refuses the advice, and all works as before.
  madvise(reinterpret_cast<void*>(first), wanted, MADV_HUGEPAGE);
  return reinterpret_cast<std::uint8_t*>(first);
}

void ReturnPixelMemory(std::uint8_t* memory, std::size_t bytes) {
  if (memory == nullptr) return;
  if (IsMapped(bytes)) {
    munmap(memory, MappedBytes(bytes));
  } else {
    std::free(memory);
  }
}

}  // namespace tarnwell
