#include "platform/posix/posix_picture_codec.h"

#include "imaging/bmp_file.h"
#include "imaging/gif_structure.h"
#include "imaging/jpeg_structure.h"
#include "platform/posix/gif_reader.h"
#include "platform/posix/jpeg_reader.h"
#include "platform/posix/posix_error.h"
#include "platform/posix/posix_file.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_path.h"

namespace tarnwell {

Result<Picture> PosixPictureCodec::Decode(std::string_view bytes, const std::string& name) {
  if (IsJpeg(bytes)) return DecodeJpeg(bytes, name);
  if (IsGif(bytes)) return DecodeGif(bytes, name);
  if (IsBmp(bytes)) return DecodeBmp(bytes, name);
  return Status::Error(Failure::kUnsupported, name + ": not a BMP, GIF or JPEG picture");
}

Result<Picture> PosixPictureCodec::Load(const std::string& path) {
  // No longer than the largest bitmap.
  constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 33;
  const Result<std::string> bytes = PosixFiles().Read(path, kMostBytes);
  if (!bytes.ok()) return bytes.status;
  return Decode(*bytes, DisplayPath(path));
}

Status PosixPictureCodec::SaveBitmap(const std::string& path, const PixelView& picture) {
  if (picture.empty()) return PathError(Failure::kUnsupported, path, "there is no picture to save");
  const std::string bytes = EncodeBmp24(picture);
  if (bytes.empty()) return PathError(Failure::kTooLarge, path, "not enough memory");
  return WriteNewFile(path, bytes);
}

}  // namespace tarnwell
