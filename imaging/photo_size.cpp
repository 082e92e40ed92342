#include "imaging/photo_size.h"

#include "imaging/bmp_file.h"
#include "imaging/bmp_header.h"
#include "imaging/gif_structure.h"
#include "imaging/jpeg_structure.h"

namespace tarnwell {

PhotoSize PhotoSizeOf(std::string_view file_bytes) {
  if (IsJpeg(file_bytes)) {
    const auto size = CheckJpeg(file_bytes, "");
    return size.ok() ? PhotoSize{size->width, size->height} : PhotoSize{};
  }
  if (IsGif(file_bytes)) {
    const auto frame = FindGifFirstFrame(file_bytes, "");
    return frame.ok() ? PhotoSize{frame->screen_width, frame->screen_height} : PhotoSize{};
  }
  if (IsBmp(file_bytes)) {
    const auto header = ParseBmpHeader(file_bytes);
    return header.ok() ? PhotoSize{header->width, header->height} : PhotoSize{};
  }
  return {};
}

}  // namespace tarnwell
