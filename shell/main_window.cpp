#include "shell/main_window.h"

#include "shell/main_view.h"

namespace tarnwell {

Occupied::~Occupied() {
  window_.occupied = false;
  if (!window_.close_wanted) return;
  window_.close_wanted = false;
  window_.view.Close();
}

}  // namespace tarnwell
