#pragma once

#include <windows.h>

#include "shell/window_memory.h"
#include "ui/look/main_layout.h"
#include "ui/look/scale.h"

namespace tarnwell {

// What taskbars leave free of the screen that the window is on; of the first screen without one.
RECT WorkArea(HWND window);

// The size of a window of this style around a client area of `client` pixels, frame included, but
// no larger than `work`.
SIZE FrameWithin(const RECT& work, const ClientSize& client, DWORD style, Scale scale);

// Keeps where a top-level window stands, or would stand were it not minimized.
void KeepPlacement(HWND window, WindowPlacement& kept);

// Puts a window that is still hidden where it stood. What was kept may be from a screen that is
// gone: then the window stays where it is.
void RestorePlacement(HWND window, WindowPlacement& kept);

}  // namespace tarnwell
