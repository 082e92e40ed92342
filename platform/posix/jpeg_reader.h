#pragma once

#include <string>
#include <string_view>

#include "imaging/pixel_array.h"
#include "platform/events.h"
#include "platform/status.h"

namespace tarnwell {

// Decodes a baseline or progressive JPEG file of grey, YCbCr, RGB, CMYK or YCCK. `name` is the
// file's name for the message of a failure ("NAME: reason"). Bytes after the end marker and odd
// headers are let pass; what CheckJpeg refuses is refused, and corrupt data is kDamaged. Ends with
// kCancelled when `go_on` says so.
Result<Picture> DecodeJpeg(std::string_view bytes, const std::string& name,
                           const GoOn& go_on = ToTheEnd);

}  // namespace tarnwell
