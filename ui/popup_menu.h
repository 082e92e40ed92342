#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ui/look.h"

namespace tarnwell {

struct MenuEntry {
  std::wstring text;
  std::wstring shortcut = {};
  bool separator = false;
  bool enabled = true;
  bool checked = false;
};

// How a menu that is one of several in a row works together with the others, by their numbers.
struct MenuNeighbours {
  std::function<int(int direction)> beside;               // an arrow key, -1 or +1
  std::function<std::optional<int>(POINT screen)> under;  // the pointer, while it is over another
  std::function<bool(POINT screen)> is_own;               // over the button of this menu
};

struct MenuAnswer {
  std::optional<int> chosen;      // the place of the chosen entry in the list
  std::optional<int> other_menu;  // what is to be opened instead
};

// Opens a menu of the program's look at a point of the screen, at least `least_width` pixels wide,
// with its first entry marked when `by_keyboard`. A letter chooses the entry that begins with it.
// Both parts of the answer are empty when the user backed out.
MenuAnswer ChooseFromMenu(HWND owner, const Look& look, const std::vector<MenuEntry>& entries,
                          POINT at, int least_width, bool by_keyboard = false,
                          const MenuNeighbours* neighbours = nullptr);

}  // namespace tarnwell
