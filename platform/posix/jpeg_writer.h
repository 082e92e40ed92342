#pragma once

#include <optional>
#include <string>

#include "platform/events.h"
#include "platform/posix/jpeg_steps.h"

namespace tarnwell {

// The content of a baseline JPEG file of `rows`, encoded on up to `threads` threads; the same for
// any number of them. Nothing when memory does not suffice or `go_on`, which is asked on the
// calling thread, ends it.
std::optional<std::string> EncodeJpegPicture(const JpegRows& rows, int quality,
                                             bool half_chrominance, int threads,
                                             const GoOn& go_on = ToTheEnd);

}  // namespace tarnwell
