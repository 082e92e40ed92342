#include "automation/memory_budget.h"

#include <algorithm>
#include <limits>

#include "imaging/photo_size.h"

namespace tarnwell {
namespace {

// An ordinary run holds the original and the working pixels at 4 bytes a pixel, one with a filter
// or a turn up to two pictures more.
constexpr std::uint64_t kBytesPerCorrectedPixel = 4 * 4;

// The thumbnail, the tables, the codec's own.
constexpr std::uint64_t kBytesPerCorrection = 4 << 20;

}  // namespace

std::uint64_t MemoryToCorrect(std::string_view file_bytes) {
  const PhotoSize size = PhotoSizeOf(file_bytes);
  return kBytesPerCorrection + file_bytes.size() +
         std::uint64_t{kBytesPerCorrectedPixel} * size.width * size.height;
}

void MemoryBudget::Take(std::uint64_t bytes) {
  std::unique_lock lock(mutex_);
  given_back_.wait(lock, [&] { return taken_ == 0 || taken_ + bytes <= bytes_; });
  taken_ += bytes;
}

void MemoryBudget::GiveBack(std::uint64_t bytes) {
  {
    const std::lock_guard lock(mutex_);
    taken_ -= bytes;
  }
  given_back_.notify_all();
}

int MemoryBudget::Fitting(std::uint64_t bytes) const {
  const std::uint64_t fitting = bytes_ / std::max<std::uint64_t>(bytes, 1);
  return static_cast<int>(std::clamp<std::uint64_t>(fitting, 1, std::numeric_limits<int>::max()));
}

}  // namespace tarnwell
