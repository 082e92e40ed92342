#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "imaging/jpeg_segments.h"
#include "imaging/metadata_to_save.h"
#include "imaging/read_metadata.h"

// Whatever stands in front of a picture: what is saved of it are whole segments, which are all kept
// when they are read and saved again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tarnwell;
  const std::string jpeg = "\xFF\xD8\xFF\xFE" + std::string("\0\2", 2) +
                           std::string(reinterpret_cast<const char*>(data), size);
  const SharedMetadata metadata = ReadPhotoMetadata(jpeg);
  if (!metadata) std::abort();
  const PixelArray picture(8, 6);
  for (const SaveWishes& wishes : {SaveWishes{}, SaveWishes{true, true}}) {
    const std::string saved = MetadataFor(*metadata, picture.view(), wishes).segments;
    const SharedMetadata again = ReadPhotoMetadata("\xFF\xD8" + saved + "\xFF\xD9");
    if (saved.empty() != (again == nullptr)) std::abort();
    if (!again) continue;
    if (again->orientation != 1 || !again->notes.empty()) std::abort();
    if (MetadataFor(*again, picture.view(), wishes).segments != saved) std::abort();
  }
  return 0;
}
