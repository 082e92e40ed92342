#pragma once

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

// Opens a menu of the program's look at a point of the screen, at least `least_width` pixels wide.
// The place of the chosen entry in the list, or nothing when the user backed out.
std::optional<int> ChooseFromMenu(HWND owner, const Look& look,
                                  const std::vector<MenuEntry>& entries, POINT at, int least_width);

}  // namespace tarnwell
