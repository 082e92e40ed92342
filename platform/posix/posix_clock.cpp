#include "platform/posix/posix_clock.h"

#include <chrono>

namespace tarnwell {

std::int64_t PosixClock::Nanos() {
  return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

}  // namespace tarnwell
