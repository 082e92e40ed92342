#pragma once

#include <array>
#include <functional>
#include <memory>

#include "shell/menus.h"
#include "ui/buttons.h"

namespace tarnwell {

struct MenuNeighbours;

// The row of buttons that drop the menus. ALT or F10 alone comes here and goes back; the arrow keys
// move along it.
class MenuBar {
 public:
  explicit MenuBar(const Look& look);
  ~MenuBar();

  std::function<void(int menu)> drop = [](int) {};  // the user wants this menu

  void Create(HWND parent);
  void LayOut(const Box& row);

  // Takes the focus, or gives it back to who had it before.
  void ToggleFocus();
  // Gives the focus back; false when the row does not have it.
  bool Leave();

  // Where a dropped menu goes, and what leads from it to another.
  POINT Below(int menu) const;
  MenuNeighbours NeighboursOf(int menu) const;
  void ShowDropped(int menu, bool dropped);

 private:
  class Entry;

  bool Holds(HWND window) const;
  void FocusCameFrom(HWND window);

  const Look& look_;
  std::array<std::unique_ptr<Entry>, kMenuCount> entries_;
  HWND before_ = nullptr;  // had the focus before
};

}  // namespace tarnwell
