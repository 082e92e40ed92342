#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "imaging/gif_structure.h"
#include "platform/posix/gif_reader.h"

// Any bytes give a picture, or a failure with a message that names the file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  // A screen may be far larger than the file, which is no fault but takes the fuzzer's time.
  constexpr std::int64_t kMostPixels = 1 << 16;
  const auto place = tarnwell::FindGifFirstFrame(bytes, "a.gif");
  if (place.ok() && std::int64_t{place->screen_width} * place->screen_height > kMostPixels)
    return 0;
  const tarnwell::Result<tarnwell::Picture> decoded = tarnwell::DecodeGif(bytes, "a.gif");
  if (decoded.ok() ? *decoded == nullptr : !decoded.status.message.starts_with("a.gif: ")) {
    std::abort();
  }
  return 0;
}
