#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "imaging/jpeg_structure.h"
#include "platform/posix/jpeg_reader.h"

// Any bytes give a picture, or a failure with a message that names the file. The size that is read
// without decoding is the picture's.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const tarnwell::Result<tarnwell::Picture> decoded = tarnwell::DecodeJpeg(bytes, "a.jpeg");
  if (decoded.ok() ? *decoded == nullptr : !decoded.status.message.starts_with("a.jpeg: ")) {
    std::abort();
  }
  const auto checked = tarnwell::CheckJpeg(bytes, "a.jpeg");
  if (!checked.ok() && !checked.status.message.starts_with("a.jpeg: ")) std::abort();
  if (checked.ok() && decoded.ok() && checked->width != (*decoded)->width()) std::abort();
  return 0;
}
