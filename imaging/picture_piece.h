#pragma once

namespace tarnwell {

// A rectangle of a picture: columns left to right - 1, rows top to bottom - 1.
struct PicturePiece {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

}  // namespace tarnwell
