#pragma once

#include <vector>

#include "ui/look/box.h"
#include "ui/look/scale.h"

namespace tarnwell {

// Where the parts of the main window lie in a client area: the menus and tools on top, the photo at
// the left, the module panel at the right, the status bar at the bottom.
//
//   +--------------------------------------+
//   | menus                                |
//   | tools                                |
//   +------------------+-------------------+
//   |  title           | panel             |
//   |  [   preview   ] | (scrolls)         |
//   |  actions         |                   |
//   |  histogram       |                   |
//   +------------------+-------------------+
//   | status                               |
//   +--------------------------------------+
struct MainLayout {
  Box menus;
  Box tools;
  Box title;
  Box preview;  // the 320 x 320 container; in a low window it is shown smaller
  Box actions;  // one row of buttons as wide as the container
  Box histogram;
  bool histogram_visible = true;  // it gives way first when the window is low
  Box panel;
  Box status;
};

MainLayout LayOutMain(int width, int height, Scale scale);

// The client area at the start, and the least that shows every part but the histogram, with a
// small preview: it fits on a screen of 768 rows at 150 %. Where the screen is smaller still, so is
// the window.
struct ClientSize {
  int width = 0;
  int height = 0;
};
ClientSize StartClientSize(Scale scale);
ClientSize LeastClientSize(Scale scale);

// The scale of everything that lies side by side in a client area of this width. A window is never
// made wider than its screen: where not even the least width fits, all is narrower in proportion.
Scale ScaleAcross(int width, Scale scale);

// Boxes of `widths` (at 96 dpi) side by side from the left of `row`, `gap` apart; a width of 0 is a
// gap of a grid unit.
std::vector<Box> LayOutRow(const Box& row, const std::vector<int>& widths, int gap, Scale scale);

}  // namespace tarnwell
