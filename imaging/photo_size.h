#pragma once

#include <string_view>

namespace tarnwell {

struct PhotoSize {
  int width = 0;  // pixels
  int height = 0;
};

// The size of the photo in this file by its headers, without decoding it; 0 x 0 when no codec would
// read the file. A GIF's size is that of its screen.
PhotoSize PhotoSizeOf(std::string_view file_bytes);

}  // namespace tarnwell
