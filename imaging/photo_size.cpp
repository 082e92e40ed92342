#include "imaging/photo_size.h"

#include "imaging/bmp_file.h"
#include "imaging/bmp_header.h"
#include "imaging/gif_structure.h"
#include "imaging/jpeg_structure.h"
#include "modules/frm_modules.h"

namespace tarnwell {
namespace {

// A run holds the original and the working pixels at 4 bytes a pixel, one with a filter or a turn,
// and the decoder of a progressive file, up to two pictures more. Noise reduction leaves smooth
// pixels and its own tables beside all that for the sharpening to read.
constexpr std::uint64_t kBytesPerRunPixel = 4 * 4;
constexpr std::uint64_t kBytesPerSmoothAndSharpPixel = 4 * 5 + 1;

// The thumbnail, the tables, the codec's own.
constexpr std::uint64_t kBytesPerCorrection = 4 << 20;

}  // namespace

PictureSize PhotoSizeOf(std::string_view file_bytes) {
  if (IsJpeg(file_bytes)) {
    const auto size = CheckJpeg(file_bytes, "");
    return size.ok() ? *size : PictureSize{};
  }
  if (IsGif(file_bytes)) {
    const auto frame = FindGifFirstFrame(file_bytes, "");
    return frame.ok() ? PictureSize{frame->screen_width, frame->screen_height} : PictureSize{};
  }
  if (IsBmp(file_bytes)) {
    const auto header = ParseBmpHeader(file_bytes);
    return header.ok() ? PictureSize{header->width, header->height} : PictureSize{};
  }
  return {};
}

std::uint64_t MemoryToCorrect(std::string_view file_bytes, const frmModules& panel) {
  const PictureSize size = PhotoSizeOf(file_bytes);
  const bool both = panel.IsOpen(kNoiseReduction) && panel.IsOpen(kAdjustFocus);
  const std::uint64_t bytes = both ? kBytesPerSmoothAndSharpPixel : kBytesPerRunPixel;
  return kBytesPerCorrection + file_bytes.size() + bytes * size.width * size.height;
}

}  // namespace tarnwell
