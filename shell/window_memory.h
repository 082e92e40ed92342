#pragma once

#include <string>

namespace tarnwell {

// Where a window stands, in pixels of the screen. A width or height of 0 says that nothing is known
// yet and the system may choose.
struct WindowBounds {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const WindowBounds&) const = default;
};

// The window that holds the module panel has a place of its own for either state.
struct WindowPlacement {
  bool maximized = false;
  WindowBounds normal;
  WindowBounds at_largest;

  WindowBounds& current() { return maximized ? at_largest : normal; }
  bool operator==(const WindowPlacement&) const = default;
};

// What the main window remembers from one run to the next, beside the module panel.
struct WindowMemory {
  std::string tips_setting;  // the tips' own two settings, kept as they write them
  std::string hidden_tips;
  WindowPlacement placement;
  bool operator==(const WindowMemory&) const = default;
};

}  // namespace tarnwell
