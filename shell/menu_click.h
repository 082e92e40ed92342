#pragma once

#include <string_view>

namespace tarnwell {

struct MainWindow;

// A click on row `row` of menu `menu` (MenuNumber), or its keyboard shortcut. Rows that are
// disabled or separators do nothing, and so does every row while a command runs. What fails is told
// to the user.
void MenuClick(MainWindow& window, int menu, int row);

// A keyboard shortcut, spelled as in the rows: clicks its row. ALT+M, which stands in no menu,
// turns the power toys on. False for a shortcut that means nothing here.
bool PressShortcut(MainWindow& window, std::string_view shortcut);

}  // namespace tarnwell
