#pragma once

#include <string>
#include <string_view>

#include "imaging/pixel_array.h"
#include "platform/status.h"

namespace tarnwell {

// Decode the content of a JPEG or GIF file with the system's imaging components; `path` is for the
// message of a failure. The unused channel of the result is 0. May be called from any thread.
Result<Picture> DecodeJpegWithWic(std::string_view bytes, const std::string& path);
Result<Picture> DecodeGifWithWic(std::string_view bytes, const std::string& path);

}  // namespace tarnwell
