#pragma once

#include <string>
#include <string_view>

#include "imaging/jpeg_structure.h"
#include "imaging/pixel_array.h"
#include "platform/events.h"
#include "platform/status.h"

namespace tarnwell {

// Decodes a baseline or progressive JPEG file of grey, YCbCr, RGB, CMYK or YCCK. `name` is the
// file's name for the message of a failure ("NAME: reason"). Bytes after the end marker and odd
// headers are let pass; missing or corrupt data is kDamaged. kTooLarge also stands for a
// file with so many scans that decoding it would take minutes (scans times pixels above
// `most_scanned_pixels`). Ends with kCancelled when `go_on` says so.
Result<Picture> DecodeJpeg(std::string_view bytes, const std::string& name,
                           const GoOn& go_on = ToTheEnd,
                           double most_scanned_pixels = kMostScannedPixels);

}  // namespace tarnwell
