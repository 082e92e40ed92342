#include "automation/memory_budget.h"

#include <algorithm>
#include <limits>

namespace tarnwell {

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
