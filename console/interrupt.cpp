#include "console/interrupt.h"

#include <atomic>
#include <csignal>

namespace tarnwell {
namespace {

// Set by a signal, which may not wait for a lock, and read by every thread that corrects a photo.
std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void RememberInterrupt(int signal_number) {
  interrupted = true;
  std::signal(signal_number, SIG_DFL);
}

}  // namespace

std::function<bool()> WatchForInterrupt() {
  std::signal(SIGINT, RememberInterrupt);
  std::signal(SIGTERM, RememberInterrupt);
  return [] { return interrupted.load(); };
}

}  // namespace tarnwell
