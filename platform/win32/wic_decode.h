#pragma once

#include <string>
#include <string_view>

#include "imaging/pixel_array.h"
#include "platform/events.h"
#include "platform/status.h"

namespace tarnwell {

// Decode the content of a JPEG or GIF file with the system's imaging components; `path` is for the
// message of a failure. The unused channel of the result is 0. kCancelled when `go_on` ends it. May
// be called from any thread.
Result<Picture> DecodeJpegWithWic(std::string_view bytes, const std::string& path,
                                  const GoOn& go_on);
Result<Picture> DecodeGifWithWic(std::string_view bytes, const std::string& path,
                                 const GoOn& go_on);

}  // namespace tarnwell
