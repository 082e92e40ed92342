#include "ui/main_menus.h"

#include <vector>

#include "shell/main_window.h"
#include "shell/menu_click.h"
#include "ui/popup_menu.h"
#include "ui/wide_text.h"

namespace tarnwell {

void MainMenus::Create(HWND frame, MainWindow& window) {
  frame_ = frame;
  window_ = &window;
  bar_.drop = [this](int menu) { Open(menu); };
  bar_.Create(frame);
}

// From menu to menu, until a row is chosen or the user backs out.
// Work that lets events in is not held up by a menu, whose rows would do nothing.
void MainMenus::Open(int menu) {
  if (IsOccupied(*window_)) return;
  for (;;) {
    std::optional<int> other_menu;
    const std::optional<int> row = Pick(menu, bar_.Below(menu), &other_menu);
    // With the keyboard the user may go on to another menu.
    if (row || (!other_menu && !look_.show_focus)) bar_.Leave();
    if (row) return MenuClick(*window_, menu, *row);
    if (!other_menu) return;
    menu = *other_menu;
  }
}

std::optional<int> MainMenus::ChooseRow(int menu, POINT at) {
  if (menu < 0 || menu >= kMenuCount) return std::nullopt;
  return Pick(menu, at, nullptr);
}

// With `other_menu` the user can go on to the menus beside this one.
std::optional<int> MainMenus::Pick(int menu, POINT at, std::optional<int>* other_menu) {
  std::vector<MenuEntry> entries;
  std::vector<int> rows;
  for (int row = 0; row < static_cast<int>(kMenus[menu].rows.size()); ++row) {
    const MenuRow& data = kMenus[menu].rows[row];
    if (!IsRowShown(window_->form, menu, row)) continue;
    rows.push_back(row);
    entries.push_back({.text = data.IsSeparator() ? L"" : Wide(data.caption),
                       .shortcut = Wide(data.shortcut),
                       .separator = data.IsSeparator(),
                       .enabled = IsRowEnabled(window_->form, menu, row),
                       .checked = IsRowChecked(*window_, menu, row)});
  }
  const MenuNeighbours neighbours = bar_.NeighboursOf(menu);
  if (other_menu) bar_.ShowDropped(menu, true);
  const MenuAnswer answer = ChooseFromMenu(frame_, look_, entries, at, look_.Px(28 * kGrid),
                                           look_.show_focus, other_menu ? &neighbours : nullptr);
  bar_.ShowDropped(menu, false);
  if (other_menu) *other_menu = answer.other_menu;
  if (!answer.chosen) return std::nullopt;
  return rows[*answer.chosen];
}

}  // namespace tarnwell
