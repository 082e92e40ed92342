#pragma once

#include <memory>
#include <string>

#include "imaging/colour_cube.h"

namespace tarnwell {

// What becomes of colours of the ICC profile `photo` on a display whose profile is the file
// `display` (empty: it has none, and is taken for a usual one). Null when the system cannot tell;
// the colours are shown as they are then.
std::unique_ptr<ColourCube> CubeForDisplay(const std::string& photo, const std::wstring& display);

}  // namespace tarnwell
