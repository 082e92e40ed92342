#pragma once

#include <functional>

namespace tarnwell {

// Lets window events that wait be handled. Long loops call it between columns, so that the windows
// repaint and a click on Cancel is heard.
class PendingEvents {
 public:
  virtual ~PendingEvents() = default;
  virtual void Run() = 0;
};

// Long work tells between its steps, on the thread that does it, which share of it is done, 0 to 1.
// False ends the work with kCancelled, and stays false.
using GoOn = std::function<bool(double done)>;

// For work that nobody stops.
inline bool ToTheEnd(double) { return true; }

}  // namespace tarnwell
