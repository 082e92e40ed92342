#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace tarnwell {

// A clock that stands at `now` and goes on by `step` with every look at it.
class FakeClock : public Clock {
 public:
  std::int64_t now = 1'000'000'000;
  std::int64_t step = 0;

  std::int64_t Nanos() override {
    const std::int64_t seen = now;
    now += step;
    return seen;
  }
};

}  // namespace tarnwell
