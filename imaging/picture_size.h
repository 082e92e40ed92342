#pragma once

namespace tarnwell {

// The sides of a picture, in pixels.
struct PictureSize {
  int width = 0;
  int height = 0;
};

}  // namespace tarnwell
