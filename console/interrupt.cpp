#include "console/interrupt.h"

#include <atomic>
#include <csignal>

namespace tarnwell {
namespace {

// Set by a signal, which may not wait for a lock, and read by every thread that corrects a photo.
std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);

constexpr int kSignals[] = {
    SIGINT,
    SIGTERM,
#ifdef SIGHUP
    SIGHUP,
#endif
};

// The second of them, whichever it is, ends the program at once.
extern "C" void RememberInterrupt(int) {
  interrupted = true;
  for (const int each : kSignals) {
    if (std::signal(each, SIG_DFL) == SIG_IGN) std::signal(each, SIG_IGN);
  }
}

// A signal that is not to be heard, as of the terminal's end behind "nohup", stays unheard.
void Watch(int signal_number) {
  if (std::signal(signal_number, RememberInterrupt) == SIG_IGN) {
    std::signal(signal_number, SIG_IGN);
  }
}

}  // namespace

std::function<bool()> WatchForInterrupt() {
  for (const int each : kSignals) Watch(each);
#ifdef SIGPIPE
  // What is printed for a reader that has gone is lost, and told so at the end; the photos are not.
  std::signal(SIGPIPE, SIG_IGN);
#endif
  return [] { return interrupted.load(); };
}

}  // namespace tarnwell
