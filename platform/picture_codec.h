#pragma once

#include <string>
#include <string_view>

#include "imaging/pixel_array.h"
#include "platform/events.h"
#include "platform/status.h"

namespace tarnwell {

// The platform's picture loader and saver. Each call asks `go_on` every few rows and ends with
// kCancelled when that says so.
class PictureCodec {
 public:
  virtual ~PictureCodec() = default;

  // Decodes the content of a BMP, GIF (first frame, on white where it is transparent) or JPEG file,
  // told apart by content and not by name, as it is stored: nothing is turned. The unused channel
  // of the result is 0. `name` is the file's in the message of a failure. Fails with kDamaged (a
  // file that breaks off is damaged), kUnsupported (another kind of file) or kTooLarge (a side
  // above 32767 pixels, or more than memory holds; found from the header, before memory is taken).
  virtual Result<Picture> Decode(std::string_view bytes, const std::string& name,
                                 const GoOn& go_on = ToTheEnd) = 0;

  // The same for the file `path`; fails with kNotFound and kNoAccess, too.
  virtual Result<Picture> Load(const std::string& path, const GoOn& go_on = ToTheEnd) = 0;

  // Writes `picture` to the new file `path` as a 24-bit bitmap. On failure no file is left.
  virtual Status SaveBitmap(const std::string& path, const PixelView& picture,
                            const GoOn& go_on = ToTheEnd) = 0;
};

}  // namespace tarnwell
