#pragma once

#include "imaging/pixel_array.h"

namespace tarnwell {

// The system clipboard, as far as pictures go.
class Clipboard {
 public:
  virtual ~Clipboard() = default;

  // Empties the clipboard and places `picture` in the bitmap format. False when the clipboard
  // cannot be opened or refuses the data.
  virtual bool SetPicture(const PixelView& picture) = 0;

  // The picture on the clipboard; an empty one when there is none.
  virtual Picture GetPicture() = 0;
};

}  // namespace tarnwell
