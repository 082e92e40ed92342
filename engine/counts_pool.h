#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <new>
#include <utility>
#include <vector>

namespace tarnwell {

// Zeroed counts of colours, one set for each thread that works at a time. Zeroed by the system page
// by page as they are touched: few of all the colours occur in a photo.
template <typename Count>
class CountsPool {
 public:
  struct Free {
    void operator()(Count* counts) const { std::free(counts); }
  };
  using Counts = std::unique_ptr<Count[], Free>;

  // Throws std::bad_alloc when memory does not suffice.
  Counts Take(std::int64_t size) {
    {
      const std::lock_guard lock(mutex_);
      if (!idle_.empty()) {
        Counts counts = std::move(idle_.back());
        idle_.pop_back();
        return counts;
      }
    }
    Counts counts(static_cast<Count*>(std::calloc(size, sizeof(Count))));
    if (!counts) throw std::bad_alloc();
    return counts;
  }
  // `counts` are zeroed again.
  void GiveBack(Counts counts) {
    const std::lock_guard lock(mutex_);
    idle_.push_back(std::move(counts));
  }

 private:
  std::mutex mutex_;
  std::vector<Counts> idle_;
};

}  // namespace tarnwell
