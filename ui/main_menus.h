#pragma once

#include <optional>
#include <windows.h>

#include "ui/menu_bar.h"

namespace tarnwell {

struct MainWindow;

// The main window's menus: the row of their names, and what drops from it.
class MainMenus {
 public:
  explicit MainMenus(const Look& look) : look_(look), bar_(look) {}

  void Create(HWND frame, MainWindow& window);
  void LayOut(const Box& row) { bar_.LayOut(row); }
  void ToggleFocus() { bar_.ToggleFocus(); }
  void Leave() { bar_.Leave(); }

  // Drops one menu at a point of the screen. The row that the user chooses, counted over the rows
  // that are shown or not.
  std::optional<int> ChooseRow(int menu, POINT at);

 private:
  void Open(int menu);
  std::optional<int> Pick(int menu, POINT at, std::optional<int>* other_menu);

  const Look& look_;
  MenuBar bar_;
  HWND frame_ = nullptr;
  MainWindow* window_ = nullptr;
};

}  // namespace tarnwell
