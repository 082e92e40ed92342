#pragma once

#include <string>
#include <string_view>

#include "imaging/pixel_array.h"
#include "platform/events.h"
#include "platform/status.h"

namespace tarnwell {

// Decodes the first frame of a GIF file, placed on the logical screen; white where it is
// transparent or does not reach. What follows the first frame is not looked at. `name` is the
// file's name for the message of a failure ("NAME: reason"). Ends with kCancelled when `go_on` says
// so.
Result<Picture> DecodeGif(std::string_view bytes, const std::string& name,
                          const GoOn& go_on = ToTheEnd);

}  // namespace tarnwell
