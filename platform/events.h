#pragma once

namespace tarnwell {

// Lets window events that wait be handled. Long loops call it between columns, so that the windows
// repaint and a click on Cancel is heard.
class PendingEvents {
 public:
  virtual ~PendingEvents() = default;
  virtual void Run() = 0;
};

}  // namespace tarnwell
