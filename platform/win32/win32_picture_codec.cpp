#include "platform/win32/win32_picture_codec.h"

#include <cstdint>
#include <new>
#include <optional>

#include "imaging/bmp_file.h"
#include "imaging/gif_structure.h"
#include "imaging/jpeg_structure.h"
#include "platform/win32/file_handle.h"
#include "platform/win32/wic_decode.h"
#include "platform/win32/wide_path.h"
#include "platform/win32/win32_error.h"
#include "platform/win32/win32_files.h"

namespace tarnwell {
namespace {

Status NoMemory(const std::string& path) {
  return Status::Error(Failure::kTooLarge, path + ": not enough memory");
}

}  // namespace

Result<Picture> Win32PictureCodec::Decode(std::string_view bytes, const std::string& name) try {
  if (IsBmp(bytes)) return DecodeBmp(bytes, name);
  if (IsJpeg(bytes)) return DecodeJpegWithWic(bytes, name);
  if (IsGif(bytes)) return DecodeGifWithWic(bytes, name);
  return Status::Error(Failure::kUnsupported, name + ": not a BMP, GIF or JPEG picture");
} catch (const std::bad_alloc&) {
  return NoMemory(name);
}

Result<Picture> Win32PictureCodec::Load(const std::string& path) try {
  // The largest bitmap that is read, 32767 pixels square with 32 bits each, lies below 4 GB.
  const Result<std::string> bytes = Win32Files().Read(path, std::uint64_t{1} << 32);
  if (!bytes.ok()) return bytes.status;
  return Decode(*bytes, path);
} catch (const std::bad_alloc&) {
  return NoMemory(path);
}

Status Win32PictureCodec::SaveBitmap(const std::string& path, const PixelView& picture) {
  if (picture.empty()) {
    return Status::Error(Failure::kUnsupported, path + ": there is no picture to save");
  }
  const std::optional<std::wstring> wide = WidePath(path);
  if (!wide) return StatusOfError(path, ERROR_INVALID_NAME, Subject::kNewFile);
  const std::string bytes = EncodeBmp24(picture);
  if (bytes.empty()) return NoMemory(path);
  const DWORD error = WriteNewFile(*wide, bytes);
  return error == ERROR_SUCCESS ? Status::Ok() : StatusOfError(path, error, Subject::kNewFile);
}

}  // namespace tarnwell
