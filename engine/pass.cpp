#include "engine/pass.h"

#include <algorithm>
#include <atomic>

#include "engine/helper_threads.h"

namespace tarnwell {

bool ForEachPart(int count, int at_once, int threads, const std::function<void(int part)>& work,
                 const std::function<bool(int done)>& part_done) {
  std::atomic<int> next = 0;
  std::atomic<int> done = 0;
  std::atomic<bool> stop = false;

  const auto work_through = [&](const auto& after_part) {
    for (;;) {
      const int first = next.fetch_add(1) * at_once;
      for (int part = first; part < first + at_once; ++part) {
        if (part >= count || stop) return;
        work(part);
        ++done;
        after_part();
      }
    }
  };

  int reported = 0;
  const auto report = [&] {
    for (const int now = done; reported < now && !stop;) {
      if (!part_done(++reported)) stop = true;
    }
  };

  const int pieces = (count + at_once - 1) / at_once;
  auto helpers = StartHelpers(std::min(threads, pieces) - 1, [&] { work_through([] {}); });
  work_through(report);
  helpers.clear();
  report();
  return !stop;
}

}  // namespace tarnwell
