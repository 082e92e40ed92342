#include "shell/main_window.h"

#include "shell/form1.h"
#include "shell/main_view.h"

namespace tarnwell {

bool IsOccupied(const MainWindow& window) { return window.occupied || window.form.correcting; }

Occupied::~Occupied() {
  window_.occupied = false;
  if (!window_.close_wanted) return;
  window_.close_wanted = false;
  window_.view.Close();
}

}  // namespace tarnwell
