#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/status.h"

namespace tarnwell {

// Whether the file's content says that it is a GIF file. It may still be damaged.
bool IsGif(std::string_view bytes);

// Where the first frame of a GIF file lies on the file's screen, in pixels, and in the file.
struct GifFirstFrame {
  int screen_width = 0;  // 1 to kMaxSide, like the frame's sides
  int screen_height = 0;
  int left = 0;  // may lie outside the screen, wholly or in part
  int top = 0;
  int width = 0;
  int height = 0;
  std::size_t end = 0;  // bytes up to and including the frame's data
};

// Finds the first frame without decoding it; what follows it is not looked at. Fails, with a
// message about `name`, with kDamaged (breaks off within the frame, has no frame, a side of 0, or
// no colours) or kTooLarge (a side above kMaxSide, or a screen of more than 268 megapixels for a
// frame that fills little of it).
Result<GifFirstFrame> FindGifFirstFrame(std::string_view bytes, const std::string& name);

}  // namespace tarnwell
