#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/posix/jpeg_reader.h"

// Any bytes give a picture, or a failure with a message that names the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const tarnwell::Result<tarnwell::Picture> decoded = tarnwell::DecodeJpeg(bytes, "a.jpeg");
  if (decoded.ok() ? *decoded == nullptr : !decoded.status.message.starts_with("a.jpeg: ")) {
    std::abort();
  }
  return 0;
}
