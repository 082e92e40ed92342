#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "imaging/bmp_file.h"
#include "imaging/bmp_header.h"

// Any bytes give a picture or a failure with a message. A picture comes back unchanged when it is
// written and read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  // Larger pictures show nothing new and take the fuzzer's time.
  constexpr std::int64_t kMostPixels = 1 << 16;
  const auto header = ParseBmpHeader(bytes);
  if (header.ok() && std::int64_t{header->width} * header->height > kMostPixels) return 0;
  const Result<Picture> decoded = DecodeBmp(bytes, "a.bmp");
  if (!decoded.ok()) {
    if (!decoded.status.message.starts_with("a.bmp: ") || decoded.value) std::abort();
    return 0;
  }
  const Result<Picture> again = DecodeBmp(EncodeBmp24((*decoded)->view()), "b.bmp");
  if (!again.ok() || **again != **decoded) std::abort();
  return 0;
}
