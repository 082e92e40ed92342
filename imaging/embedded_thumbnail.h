#pragma once

#include <cstddef>
#include <string>

#include "imaging/pixel_array.h"

namespace tarnwell {

// A thumbnail as photo files carry it.
struct EmbeddedThumbnail {
  std::string jpeg;  // a JPEG file without a header about itself
  int width = 0;
  int height = 0;
};

// The thumbnail of `picture`, its longer side `longest_side` pixels or the picture's own if that is
// shorter, at the best quality whose file is at most `most_bytes` long. Empty when none is. Looks
// at a fixed number of the picture's pixels, so that a large one takes no longer. Throws
// std::bad_alloc when memory does not suffice.
EmbeddedThumbnail MakeEmbeddedThumbnail(const PixelView& picture, int longest_side,
                                        std::size_t most_bytes);

}  // namespace tarnwell
