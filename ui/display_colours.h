#pragma once

#include <memory>
#include <string>
#include <windows.h>

#include "imaging/colour_cube.h"
#include "imaging/photo_metadata.h"

namespace tarnwell {

// How the colours of a photo with a colour profile of its own are to be shown. Only for the screen:
// the photo's pixels stay as they are. Keeps the last answer, since a window asks at every paint.
class ColoursOnScreen {
 public:
  // For the display that `window` is on; null when colours are shown as they are. Valid until the
  // next call.
  const ColourCube* For(HWND window, const SharedMetadata& metadata);

 private:
  SharedMetadata metadata_;
  std::wstring display_;
  std::unique_ptr<ColourCube> cube_;
};

}  // namespace tarnwell
