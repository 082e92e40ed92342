#pragma once

#include "platform/picture_codec.h"

namespace tarnwell {

// Pictures through libjpeg-turbo and giflib; bitmaps through the program's own reader and writer.
class PosixPictureCodec : public PictureCodec {
 public:
  Result<Picture> Decode(std::string_view bytes, const std::string& name,
                         const GoOn& go_on) override;
  Result<Picture> Load(const std::string& path, const GoOn& go_on) override;
  Status SaveBitmap(const std::string& path, const PixelView& picture, const GoOn& go_on) override;
};

}  // namespace tarnwell
