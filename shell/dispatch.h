#pragma once

namespace tarnwell {

struct MainWindow;

// The two dispatchers behind their look at whether the window is occupied. They press each other:
// most rows are buttons, and one button is a menu.
void RunMenuRow(MainWindow& window, int menu, int row);
void PressToolButton(MainWindow& window, int index);

}  // namespace tarnwell
