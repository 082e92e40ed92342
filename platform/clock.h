#pragma once

#include <cstdint>

namespace tarnwell {

class Clock {
 public:
  virtual ~Clock() = default;

  // Nanoseconds since some fixed moment; never goes back. For durations and as a random seed.
  virtual std::int64_t Nanos() = 0;
};

}  // namespace tarnwell
