#pragma once

#include "platform/clock.h"

namespace tarnwell {

class Win32Clock : public Clock {
 public:
  std::int64_t Nanos() override;
};

}  // namespace tarnwell
