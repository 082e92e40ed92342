#pragma once

#include <functional>
#include <utility>

#include "platform/events.h"

namespace tarnwell {

// The only event that can be pending for a command is the user's wish to stop; it presses the
// cancel button.
class ConsoleEvents : public PendingEvents {
 public:
  ConsoleEvents(std::function<bool()> interrupted, bool& cancel_requested)
      : interrupted_(std::move(interrupted)), cancel_requested_(cancel_requested) {}

  void Run() override {
    if (interrupted_()) cancel_requested_ = true;
  }

 private:
  std::function<bool()> interrupted_;
  bool& cancel_requested_;
};

}  // namespace tarnwell
