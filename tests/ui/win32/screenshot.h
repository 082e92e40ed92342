#pragma once

#include <string>
#include <windows.h>

namespace tarnwell {

// Leaves a picture of a window, as it stands on the screen, as `name`.png in the folder
// "screenshots" of the build, for people to look at. Where a picture cannot be had the tests go on
// without it.
void Screenshot(HWND window, const std::string& name);

}  // namespace tarnwell
