#pragma once

namespace tarnwell {

struct MainWindow;

// A click on row `row` of menu `menu` (MenuNumber), or its keyboard shortcut. Rows that are
// disabled or separators do nothing, and so does every row while a command runs. What fails is told
// to the user.
void MenuClick(MainWindow& window, int menu, int row);

}  // namespace tarnwell
