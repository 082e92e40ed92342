#pragma once

#include "platform/clock.h"

namespace tarnwell {

class PosixClock : public Clock {
 public:
  std::int64_t Nanos() override;
};

}  // namespace tarnwell
