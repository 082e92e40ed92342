#include "platform/posix/posix_picture_codec.h"

#include "imaging/bmp_file.h"
#include "imaging/gif_structure.h"
#include "imaging/jpeg_structure.h"
#include "imaging/other_pictures.h"
#include "platform/posix/gif_reader.h"
#include "platform/posix/jpeg_reader.h"
#include "platform/posix/posix_error.h"
#include "platform/posix/posix_file.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_path.h"

namespace tarnwell {

Result<Picture> PosixPictureCodec::Decode(std::string_view bytes, const std::string& name,
                                          const GoOn& go_on) {
  if (IsJpeg(bytes)) return DecodeJpeg(bytes, name, go_on);
  if (IsGif(bytes)) return DecodeGif(bytes, name, go_on);
  if (IsBmp(bytes)) return DecodeBmp(bytes, name, go_on);
  return NoPhoto(bytes, name);
}

Result<Picture> PosixPictureCodec::Load(const std::string& path, const GoOn& go_on) {
  // No longer than the largest bitmap.
  constexpr std::uint64_t kMostBytes = std::uint64_t{1} << 33;
  const Result<std::string> bytes = PosixFiles().Read(path, kMostBytes);
  if (!bytes.ok()) return bytes.status;
  return Decode(*bytes, DisplayPath(path), go_on);
}

Status PosixPictureCodec::SaveBitmap(const std::string& path, const PixelView& picture,
                                     const GoOn& go_on) {
  if (picture.empty()) return PathError(Failure::kUnsupported, path, "there is no picture to save");
  const std::string bytes = EncodeBmp24(picture, go_on);
  if (!go_on(1)) return Status::Cancelled(DisplayPath(path));
  if (bytes.empty()) return PathError(Failure::kTooLarge, path, "not enough memory");
  const std::string_view whole = bytes;
  return WriteNewFile(path, {&whole, 1}, go_on);
}

}  // namespace tarnwell
