#include "automation/photo_workers.h"

#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

namespace tarnwell {

void ForEachPhoto(std::size_t count, int workers, const std::function<bool(std::size_t)>& begin,
                  const std::function<void(std::size_t)>& work) {
  std::mutex mutex;
  std::size_t next = 0;
  const auto take = [&]() -> std::optional<std::size_t> {
    const std::lock_guard lock(mutex);
    if (next >= count) return std::nullopt;
    if (begin(next)) return next++;
    next = count;
    return std::nullopt;
  };
  const auto work_through = [&] {
    while (const auto number = take()) work(*number);
  };

  std::vector<std::thread> helpers;
  try {
    for (int i = 1; i < workers && static_cast<std::size_t>(i) < count; ++i) {
      helpers.emplace_back(work_through);
    }
  } catch (const std::system_error&) {
    // The system lends no more threads; those that are there do the work.
  }
  work_through();
  for (std::thread& helper : helpers) helper.join();
}

}  // namespace tarnwell
