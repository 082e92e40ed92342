#pragma once

#include <functional>

#include "platform/events.h"

namespace tarnwell {

// Counts how often pending events were let in. `on_run` plays the user who clicks meanwhile; it is
// told which call this is, the first being 1.
class RecordingEvents : public PendingEvents {
 public:
  int runs = 0;
  std::function<void(int run)> on_run;

  void Run() override {
    ++runs;
    if (on_run) on_run(runs);
  }
};

}  // namespace tarnwell
