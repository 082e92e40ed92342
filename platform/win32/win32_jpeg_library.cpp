#include "platform/win32/win32_jpeg_library.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <optional>

#include "imaging/jpeg_encoder.h"
#include "imaging/jpeg_segments.h"
#include "imaging/pixel_array.h"
#include "platform/win32/file_handle.h"
#include "platform/win32/wide_path.h"
#include "platform/win32/win32_error.h"
#include "platform/win32/win32_files.h"

namespace tarnwell {
namespace {

// Values of the record's fields that stand for what the encoder does: blue-green-red in, YCbCr with
// chroma at half the resolution both ways out.
constexpr int kColourBgr = 2;
constexpr int kColourYcbcr = 3;
constexpr int kSubsampling420 = 1;

bool IsWritable(const JPEG_CORE_PROPERTIES& record) {
  // Compared before its absolute value is taken: the lowest number has none.
  const bool sides_fit = record.DIBWidth >= 1 && record.DIBWidth <= kMaxSide &&
                         record.DIBHeight >= -kMaxSide && record.DIBHeight <= kMaxSide &&
                         record.DIBHeight != 0;
  return sides_fit && record.DIBBytes != nullptr && record.JPGFile != nullptr &&
         record.DIBPadBytes >= 0 && record.DIBPadBytes <= kMaxSide && record.DIBChannels == 3 &&
         record.DIBColor == kColourBgr && record.JPGWidth == record.DIBWidth &&
         record.JPGHeight == std::abs(record.DIBHeight) && record.jquality >= 0 &&
         record.jquality <= 100;
}

BgrRows RowsOf(const JPEG_CORE_PROPERTIES& record) {
  const std::ptrdiff_t step = std::ptrdiff_t{3} * record.DIBWidth + record.DIBPadBytes;
  const int height = std::abs(record.DIBHeight);
  if (record.DIBHeight > 0) return {record.DIBBytes, step, record.DIBWidth, height};
  return {record.DIBBytes + (height - 1) * step, -step, record.DIBWidth, height};
}

}  // namespace

int Win32JpegLibrary::ijlInit(JPEG_CORE_PROPERTIES* record) {
  if (record == nullptr) return kBadRecord;
  std::memset(record, 0, sizeof *record);
  record->DIBChannels = 3;
  record->DIBColor = kColourBgr;
  record->JPGChannels = 3;
  record->JPGColor = kColourYcbcr;
  record->JPGSubsampling = kSubsampling420;
  record->cconversion_reqd = 1;
  record->upsampling_reqd = 1;
  record->jquality = 75;
  return 0;
}

int Win32JpegLibrary::ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) try {
  if (record == nullptr || mode != kWriteWholeFile || !IsWritable(*record)) return kBadRecord;
  const bool half_chrominance = record->JPGSubsampling == kSubsampling420;
  const std::string bytes = EncodeJpeg(RowsOf(*record), record->jquality, half_chrominance);
  return Win32Files().Replace(record->JPGFile, bytes).ok() ? 0 : kFileNotWritten;
} catch (const std::bad_alloc&) {
  return kNoMemory;
}

int Win32JpegLibrary::ijlFree(JPEG_CORE_PROPERTIES* record) {
  return record == nullptr ? kBadRecord : 0;
}

std::string Win32JpegLibrary::EncodePath(const std::string& path) { return path; }

Status Win32JpegLibrary::WritePicture(const std::string& path, const JpegPicture& picture) try {
  const PixelView& pixels = picture.pixels;
  const BgrRows rows = {pixels.data, static_cast<std::ptrdiff_t>(pixels.stride()), pixels.width,
                        pixels.height, kBytesPerPixel};
  std::string bytes = EncodeJpegInStripes(rows, picture.quality, picture.half_chrominance,
                                          picture.threads, picture.go_on);
  if (!picture.go_on(1)) return Status::Cancelled(path);
  if (!picture.segments.empty()) bytes = WithSegments(bytes, picture.segments);
  return WriteNewFile(path, bytes, picture.go_on);
} catch (const std::bad_alloc&) {
  return Status::Error(Failure::kTooLarge, path + ": there is not enough memory to save");
}

}  // namespace tarnwell
