#include "engine/column_pass.h"

#include <atomic>
#include <thread>
#include <vector>

namespace tarnwell {
namespace {

// 16 columns fill a cache line, so threads that take whole strips do not write to one line at once.
constexpr int kStrip = 16;

}  // namespace

bool ForEachColumn(int width, int threads, const std::function<void(int x)>& work,
                   const std::function<bool(int done)>& column_done) {
  std::atomic<int> next_strip = 0;
  std::atomic<int> done = 0;
  std::atomic<bool> stop = false;

  const auto work_through = [&](const auto& after_column) {
    for (;;) {
      const int first = next_strip.fetch_add(1) * kStrip;
      for (int x = first; x < first + kStrip; ++x) {
        if (x >= width || stop) return;
        work(x);
        ++done;
        after_column();
      }
    }
  };

  int reported = 0;
  const auto report = [&] {
    for (const int now = done; reported < now && !stop;) {
      if (!column_done(++reported)) stop = true;
    }
  };

  std::vector<std::thread> helpers;
  for (int i = 1; i < threads && i * kStrip < width; ++i) {
    helpers.emplace_back([&] { work_through([] {}); });
  }
  work_through(report);
  for (std::thread& helper : helpers) helper.join();
  report();
  return !stop;
}

}  // namespace tarnwell
