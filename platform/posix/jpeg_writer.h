#pragma once

#include <optional>
#include <string>

#include "platform/posix/jpeg_steps.h"

namespace tarnwell {

// The content of a baseline JPEG file of `rows`, encoded on up to `threads` threads; the same for
// any number of them. Nothing when memory does not suffice.
std::optional<std::string> EncodeJpegPicture(const JpegRows& rows, int quality,
                                             bool half_chrominance, int threads);

}  // namespace tarnwell
