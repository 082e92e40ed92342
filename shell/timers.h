#pragma once

namespace tarnwell {

struct MainWindow;

// Timer1, a one-shot: loads the presets of the program folder in the order of their names, then
// switches itself off.
void Timer1_Tick(MainWindow& window);

// Timer2, the polling timer: opens the photo that another instance has queued. Ticks while the
// window is occupied or closing do nothing. The first tick offers the start-up tip. Returns whether
// a photo was opened.
bool Timer2_Tick(MainWindow& window);

}  // namespace tarnwell
