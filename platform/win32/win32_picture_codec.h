#pragma once

#include <string>

#include "platform/picture_codec.h"

namespace tarnwell {

// Bitmaps through the program's own reader and writer, JPEG and GIF through the system's imaging
// components. May be called from any thread.
class Win32PictureCodec : public PictureCodec {
 public:
  Result<Picture> Decode(std::string_view bytes, const std::string& name,
                         const GoOn& go_on) override;
  Result<Picture> Load(const std::string& path, const GoOn& go_on) override;
  Status SaveBitmap(const std::string& path, const PixelView& picture, const GoOn& go_on) override;
};

}  // namespace tarnwell
