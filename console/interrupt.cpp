#include "console/interrupt.h"

#include <csignal>

namespace tarnwell {
namespace {

// A signal can reach nothing but a variable of this kind.
volatile std::sig_atomic_t interrupted = 0;

extern "C" void RememberInterrupt(int signal_number) {
  interrupted = 1;
  std::signal(signal_number, SIG_DFL);
}

}  // namespace

std::function<bool()> WatchForInterrupt() {
  std::signal(SIGINT, RememberInterrupt);
  std::signal(SIGTERM, RememberInterrupt);
  return [] { return interrupted != 0; };
}

}  // namespace tarnwell
