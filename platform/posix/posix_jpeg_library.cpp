#include "platform/posix/posix_jpeg_library.h"

#include <fcntl.h>
#include <new>
#include <string_view>
#include <unistd.h>
#include <vector>

#include "imaging/jpeg_segments.h"
#include "platform/posix/jpeg_writer.h"
#include "platform/posix/posix_error.h"
#include "platform/posix/posix_file.h"
#include "platform/posix/posix_path.h"

namespace tarnwell {
namespace {

using Pieces = std::vector<std::string_view>;

Pieces PiecesOf(const JpegInPieces& file) {
  Pieces pieces = {file.header};
  pieces.insert(pieces.end(), file.data.begin(), file.data.end());
  return pieces;
}

}  // namespace

bool PosixJpegLibrary::WriteRows(const std::string& path, const BgrRows& rows, int quality,
                                 bool half_chrominance) {
  Result<PosixFile> file = OpenFile(path, O_WRONLY | O_CREAT | O_TRUNC, Subject::kNewFile);
  if (!file.ok()) return false;
  const auto picture = EncodeJpegPicture({rows.top, rows.step, rows.width, rows.height}, quality,
                                         half_chrominance, 1);
  bool written = picture.has_value();
  for (const std::string_view piece : picture ? PiecesOf(picture->file) : Pieces()) {
    written = written && WriteAll(*file, piece, path).ok();
  }
  if (written && close(file->Release()) == 0) return true;
  unlink(ToSystemPath(path)->c_str());
  return false;
}

// A path that no call accepts would change its meaning as a zero-terminated string.
std::string PosixJpegLibrary::EncodePath(const std::string& path) {
  return ToSystemPath(path).ok() ? path : std::string();
}

Status PosixJpegLibrary::WritePicture(const std::string& path, const JpegPicture& picture) try {
  const PixelView& pixels = picture.pixels;
  const JpegRows rows = {pixels.data, static_cast<std::ptrdiff_t>(pixels.stride()), pixels.width,
                         pixels.height, kBytesPerPixel};
  auto encoded = EncodeJpegPicture(rows, picture.quality, picture.half_chrominance, picture.threads,
                                   picture.go_on);
  if (!picture.go_on(1)) return Status::Cancelled(DisplayPath(path));
  if (!encoded) throw std::bad_alloc();
  std::string& header = encoded->file.header;
  if (!picture.segments.empty()) header = WithSegments(header, picture.segments);
  return WriteNewFile(path, PiecesOf(encoded->file), picture.go_on);
} catch (const std::bad_alloc&) {
  return PathError(Failure::kTooLarge, path, "there is not enough memory to save");
}

}  // namespace tarnwell
