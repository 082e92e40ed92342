#include "platform/win32/win32_picture_codec.h"

#include <cstdint>
#include <new>

#include "imaging/bmp_file.h"
#include "imaging/gif_structure.h"
#include "imaging/jpeg_structure.h"
#include "imaging/other_pictures.h"
#include "platform/win32/wic_decode.h"
#include "platform/win32/win32_files.h"

namespace tarnwell {
namespace {

Status NoMemory(const std::string& path) {
  return Status::Error(Failure::kTooLarge, path + ": not enough memory");
}

}  // namespace

Result<Picture> Win32PictureCodec::Decode(std::string_view bytes, const std::string& name,
                                          const GoOn& go_on) try {
  if (IsBmp(bytes)) return DecodeBmp(bytes, name, go_on);
  if (IsJpeg(bytes)) return DecodeJpegWithWic(bytes, name, go_on);
  if (IsGif(bytes)) return DecodeGifWithWic(bytes, name, go_on);
  return NoPhoto(bytes, name);
} catch (const std::bad_alloc&) {
  return NoMemory(name);
}

Result<Picture> Win32PictureCodec::Load(const std::string& path, const GoOn& go_on) try {
  // The largest bitmap that is read, 32767 pixels square with 32 bits each, lies below 4 GB.
  const Result<std::string> bytes = Win32Files().Read(path, std::uint64_t{1} << 32);
  if (!bytes.ok()) return bytes.status;
  return Decode(*bytes, path, go_on);
} catch (const std::bad_alloc&) {
  return NoMemory(path);
}

Status Win32PictureCodec::SaveBitmap(const std::string& path, const PixelView& picture,
                                     const GoOn& go_on) {
  if (picture.empty()) {
    return Status::Error(Failure::kUnsupported, path + ": there is no picture to save");
  }
  const std::string bytes = EncodeBmp24(picture, go_on);
  if (!go_on(1)) return Status::Cancelled(path);
  if (bytes.empty()) return NoMemory(path);
  return WriteNewFile(path, bytes, go_on);
}

}  // namespace tarnwell
