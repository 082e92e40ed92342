#pragma once

#include "modules/module_table.h"

namespace tarnwell {

// Whether the module's settings are in force while it is closed, too: closing it only puts them out
// of sight. The settings of the others then do nothing.
inline bool ActsWhileClosed(int module) {
  return module == kCameraAndMode || module == kJpegQuality || module == kSavePhotoAs;
}

}  // namespace tarnwell
