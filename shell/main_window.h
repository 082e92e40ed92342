#pragma once

#include <optional>

namespace tarnwell {

class MainView;
struct Form1;
struct Tips;

// Timer2's interval.
inline constexpr int kPollingMilliseconds = 1000;

// The main window while it runs: its data, its view, and what its commands and timers must know of
// each other. One per program, owned by the host.
struct MainWindow {
  Form1& form;
  MainView& view;
  Tips& tips;

  // A command runs and may let pending events in; no other command begins meanwhile, and the
  // polling timer skips its ticks.
  bool occupied = false;
  bool automated_mode = false;  // it runs, as its menu row shows
  // The automated mode takes photos. Commands are heard between them; a close waits for the end.
  bool pass_running = false;
  // The user closed the window while a command or a pass ran.
  bool close_wanted = false;
  // The close itself asks about unsaved changes; another one has nothing to add.
  bool close_asked = false;

  bool start_up_tip_due = true;
  int timer1_interval = 1;  // milliseconds; 0 is off
};

// Whether a command or a correction runs; the automated mode corrects without a command.
bool IsOccupied(const MainWindow& window);

// Marks the window as occupied for one scope. A close that was wanted meanwhile is requested again
// at the end.
class Occupied {
 public:
  explicit Occupied(MainWindow& window) : window_(window) { window_.occupied = true; }
  ~Occupied();
  Occupied(const Occupied&) = delete;
  Occupied& operator=(const Occupied&) = delete;

 private:
  MainWindow& window_;
};

// The same where a command may have occupied the window already.
class OccupiedMeanwhile {
 public:
  explicit OccupiedMeanwhile(MainWindow& window) {
    if (!window.occupied) occupied_.emplace(window);
  }

 private:
  std::optional<Occupied> occupied_;
};

}  // namespace tarnwell
