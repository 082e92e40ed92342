#include "automation/photo_workers.h"

#include <algorithm>
#include <exception>
#include <mutex>
#include <optional>

#include "engine/helper_threads.h"

namespace tarnwell {

void ForEachPhoto(std::size_t count, int workers, const std::function<bool(std::size_t)>& begin,
                  const std::function<void(std::size_t)>& work) {
  std::mutex mutex;
  std::size_t next = 0;
  std::exception_ptr thrown;
  const auto take = [&]() -> std::optional<std::size_t> {
    const std::lock_guard lock(mutex);
    if (next >= count) return std::nullopt;
    if (begin(next)) return next++;
    next = count;
    return std::nullopt;
  };
  const auto work_through = [&] {
    try {
      while (const auto number = take()) work(*number);
    } catch (...) {
      const std::lock_guard lock(mutex);
      thrown = std::current_exception();
      next = count;
    }
  };

  const std::size_t at_once = std::min(count, static_cast<std::size_t>(std::max(workers, 1)));
  auto helpers = StartHelpers(static_cast<int>(at_once) - 1, work_through);
  work_through();
  helpers.clear();
  if (thrown) std::rethrow_exception(thrown);
}

}  // namespace tarnwell
