#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/posix/gif_reader.h"

// Any bytes give a picture, or a failure with a message that names the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  // A screen may be far larger than the file, which is no fault but takes the fuzzer's memory.
  constexpr std::size_t kMostPixels = 1 << 22;
  if (size >= 10) {
    const std::size_t width = data[6] + 256u * data[7], height = data[8] + 256u * data[9];
    if (width * height > kMostPixels) return 0;
  }
  const tarnwell::Result<tarnwell::Picture> decoded = tarnwell::DecodeGif(bytes, "a.gif");
  if (decoded.ok() ? *decoded == nullptr : !decoded.status.message.starts_with("a.gif: ")) {
    std::abort();
  }
  return 0;
}
