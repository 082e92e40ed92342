#include "platform/posix/posix_jpeg_library.h"

#include <cstdlib>
#include <fcntl.h>
#include <new>
#include <unistd.h>

#include "imaging/jpeg_segments.h"
#include "imaging/pixel_array.h"
#include "platform/posix/jpeg_writer.h"
#include "platform/posix/posix_error.h"
#include "platform/posix/posix_file.h"
#include "platform/posix/posix_path.h"

namespace tarnwell {
namespace {

enum ErrorCode {
  kDone = 0,
  kBadArgument = -1,
  kBadRecord = -2,
  kCannotCreate = -3,
  kWriteFailed = -4,
};

// The library's codes for colours and for the resolution of the chrominance.
constexpr int kColourBgr = 2;
constexpr int kColourYCbCr = 3;
constexpr int kFullChrominance = 0;
constexpr int kHalfChrominance = 1;
constexpr int kDefaultQuality = 75;

bool HoldsPicture(const JPEG_CORE_PROPERTIES& record) {
  return record.UseJPEGPROPERTIES == 0 && record.DIBBytes != nullptr && record.DIBWidth >= 1 &&
         record.DIBWidth <= kMaxSide && record.DIBHeight != 0 && record.DIBHeight >= -kMaxSide &&
         record.DIBHeight <= kMaxSide && record.DIBPadBytes >= 0 && record.DIBChannels == 3 &&
         record.DIBColor == kColourBgr && record.DIBSubsampling == kFullChrominance;
}

bool DescribesJpeg(const JPEG_CORE_PROPERTIES& record) {
  return record.JPGFile != nullptr && record.JPGWidth == record.DIBWidth &&
         record.JPGHeight == std::abs(record.DIBHeight) && record.JPGChannels == 3 &&
         record.JPGColor == kColourYCbCr &&
         (record.JPGSubsampling == kFullChrominance || record.JPGSubsampling == kHalfChrominance) &&
         record.jquality >= 0 && record.jquality <= 100;
}

JpegRows RowsOf(const JPEG_CORE_PROPERTIES& record) {
  const std::ptrdiff_t step = std::ptrdiff_t{3} * record.DIBWidth + record.DIBPadBytes;
  JpegRows rows{record.DIBBytes, step, record.DIBWidth, std::abs(record.DIBHeight)};
  if (record.DIBHeight < 0) {
    rows.top += (rows.height - 1) * step;
    rows.step = -step;
  }
  return rows;
}

}  // namespace

int PosixJpegLibrary::ijlInit(JPEG_CORE_PROPERTIES* record) {
  if (record == nullptr) return kBadArgument;
  *record = {};
  record->DIBChannels = 3;
  record->DIBColor = kColourBgr;
  record->DIBSubsampling = kFullChrominance;
  record->JPGChannels = 3;
  record->JPGColor = kColourYCbCr;
  record->JPGSubsampling = kHalfChrominance;
  record->cconversion_reqd = 1;
  record->upsampling_reqd = 1;
  record->jquality = kDefaultQuality;
  return kDone;
}

int PosixJpegLibrary::ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) {
  if (record == nullptr || mode != kWriteWholeFile) return kBadArgument;
  if (!HoldsPicture(*record) || !DescribesJpeg(*record)) return kBadRecord;
  const std::string path = record->JPGFile;
  Result<PosixFile> file = OpenFile(path, O_WRONLY | O_CREAT | O_TRUNC, Subject::kNewFile);
  if (!file.ok()) return kCannotCreate;
  const auto bytes = EncodeJpegPicture(RowsOf(*record), record->jquality,
                                       record->JPGSubsampling == kHalfChrominance, 1);
  if (bytes && WriteAll(*file, *bytes, path).ok() && close(file->Release()) == 0) return kDone;
  unlink(ToSystemPath(path)->c_str());
  return kWriteFailed;
}

int PosixJpegLibrary::ijlFree(JPEG_CORE_PROPERTIES* record) {
  return record == nullptr ? kBadArgument : kDone;
}

// A path that no call accepts would change its meaning as a zero-terminated string.
std::string PosixJpegLibrary::EncodePath(const std::string& path) {
  return ToSystemPath(path).ok() ? path : std::string();
}

Status PosixJpegLibrary::WritePicture(const std::string& path, const JpegPicture& picture) try {
  const PixelView& pixels = picture.pixels;
  const JpegRows rows = {pixels.data, static_cast<std::ptrdiff_t>(pixels.stride()), pixels.width,
                         pixels.height, kBytesPerPixel};
  const auto bytes = EncodeJpegPicture(rows, picture.quality, picture.half_chrominance,
                                       picture.threads, picture.go_on);
  if (!picture.go_on(1)) return Status::Cancelled(DisplayPath(path));
  if (!bytes) throw std::bad_alloc();
  return WriteNewFile(path,
                      picture.segments.empty() ? *bytes : WithSegments(*bytes, picture.segments),
                      picture.go_on);
} catch (const std::bad_alloc&) {
  return PathError(Failure::kTooLarge, path, "there is not enough memory to save");
}

}  // namespace tarnwell
