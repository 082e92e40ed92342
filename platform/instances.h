#pragma once

namespace tarnwell {

// The other running copies of this program.
class RunningInstances {
 public:
  virtual ~RunningInstances() = default;
  virtual bool AnotherIsRunning() = 0;
};

}  // namespace tarnwell
