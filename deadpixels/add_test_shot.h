#pragma once

#include <string>

#include "deadpixels/dead_pixel_files.h"
#include "deadpixels/test_shot.h"
#include "platform/status.h"

namespace tarnwell {

struct Module1;
struct Platform;

struct AddedShot {
  Resolution resolution;
  ShotKind kind = ShotKind::kNeither;
  std::string name;  // "Input3.BMP"
};

// Adds a copy of the photo `path` (BMP, GIF or JPEG) to the test shots of the current camera and of
// its resolution, as the bitmap with the first free number; nothing is replaced. Fails with the
// loader's or the disk's reason, and for a photo that is neither dark nor light or that is among
// the shots already (noise that is counted twice would pass for stuck pixels). Nothing is left
// behind then.
Result<AddedShot> AddTestShot(const Module1& app, Platform& platform, const std::string& path);

// "NAME is neither very bright or very dark, and cannot be assessed"
Status NeitherDarkNorLight(const std::string& name);

}  // namespace tarnwell
