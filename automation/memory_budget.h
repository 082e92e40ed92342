#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace tarnwell {

// Keeps corrections that run side by side from taking more memory than there is for them.
class MemoryBudget {
 public:
  explicit MemoryBudget(std::uint64_t bytes) : bytes_(bytes) {}

  // Waits until `bytes` more fit. What is larger than the whole budget gets it alone.
  void Take(std::uint64_t bytes);
  void GiveBack(std::uint64_t bytes);

  // How many tasks of this size fit side by side, at least 1.
  int Fitting(std::uint64_t bytes) const;

 private:
  const std::uint64_t bytes_;
  std::uint64_t taken_ = 0;
  std::mutex mutex_;
  std::condition_variable given_back_;
};

// Gives `bytes` that were taken back at the end of a scope, however it ends: others wait for them.
class TakenMemory {
 public:
  TakenMemory(MemoryBudget& budget, std::uint64_t bytes) : budget_(budget), bytes_(bytes) {}
  ~TakenMemory() { budget_.GiveBack(bytes_); }
  TakenMemory(const TakenMemory&) = delete;
  TakenMemory& operator=(const TakenMemory&) = delete;

 private:
  MemoryBudget& budget_;
  const std::uint64_t bytes_;
};

}  // namespace tarnwell
