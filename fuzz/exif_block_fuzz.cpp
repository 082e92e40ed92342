#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "imaging/exif_block.h"

// Any bytes behind the name are no block, or one that every change leaves readable.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string content =
      std::string("Exif\0\0", 6) + std::string(reinterpret_cast<const char*>(data), size);
  auto exif = ExifBlock::Parse(content);
  if (!exif || content.size() > 65533) return 0;
  exif->SetUpright();
  exif->SetPixelSize(4000, 3000);
  if (!ExifBlock::Parse(exif->content()) || exif->content().size() != content.size()) std::abort();
  const std::size_t thumbnail = size == 0 ? 0 : data[size - 1] * std::size_t{16};
  exif->ReplaceThumbnail([thumbnail](int, std::size_t most) {
    return thumbnail <= most ? EmbeddedThumbnail{std::string(thumbnail, 't'), 160, 120}
                             : EmbeddedThumbnail{};
  });
  if (!ExifBlock::Parse(exif->content()) || exif->content().size() > 65533) std::abort();
  if (!exif->LeaveSubjectOut() || !exif->LeavePlaceOut()) return 0;
  const auto again = ExifBlock::Parse(exif->content());
  if (!again || again->Orientation() != 1) std::abort();
  return 0;
}
