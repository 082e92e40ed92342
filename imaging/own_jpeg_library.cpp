#include "imaging/own_jpeg_library.h"

#include <cstdlib>
#include <new>

namespace tarnwell {
namespace {

// The library's codes for colours and for the resolution of the chrominance.
constexpr int kColourBgr = 2;
constexpr int kColourYCbCr = 3;
constexpr int kFullChrominance = 0;
constexpr int kHalfChrominance = 1;
constexpr int kDefaultQuality = 75;

bool HoldsPicture(const JPEG_CORE_PROPERTIES& record) {
  return record.UseJPEGPROPERTIES == 0 && record.DIBBytes != nullptr && record.DIBWidth >= 1 &&
         record.DIBWidth <= kMaxSide && record.DIBHeight != 0 && record.DIBHeight >= -kMaxSide &&
         record.DIBHeight <= kMaxSide && record.DIBPadBytes >= 0 &&
         record.DIBPadBytes <= kMaxSide && record.DIBChannels == 3 &&
         record.DIBColor == kColourBgr && record.DIBSubsampling == kFullChrominance;
}

// Called on a record that holds a picture: the lowest number has no absolute value.
bool DescribesJpeg(const JPEG_CORE_PROPERTIES& record) {
  return record.JPGFile != nullptr && record.JPGWidth == record.DIBWidth &&
         record.JPGHeight == std::abs(record.DIBHeight) && record.JPGChannels == 3 &&
         record.JPGColor == kColourYCbCr &&
         (record.JPGSubsampling == kFullChrominance || record.JPGSubsampling == kHalfChrominance) &&
         record.jquality >= 0 && record.jquality <= 100;
}

BgrRows RowsOf(const JPEG_CORE_PROPERTIES& record) {
  const std::ptrdiff_t step = std::ptrdiff_t{3} * record.DIBWidth + record.DIBPadBytes;
  const int height = std::abs(record.DIBHeight);
  if (record.DIBHeight > 0) return {record.DIBBytes, step, record.DIBWidth, height};
  return {record.DIBBytes + (height - 1) * step, -step, record.DIBWidth, height};
}

}  // namespace

int OwnJpegLibrary::ijlInit(JPEG_CORE_PROPERTIES* record) {
  if (record == nullptr) return kBadRecord;
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
  return 0;
}

int OwnJpegLibrary::ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) try {
  const bool writable = record != nullptr && mode == kWriteWholeFile && HoldsPicture(*record) &&
                        DescribesJpeg(*record);
  if (!writable) return kBadRecord;
  const bool half_chrominance = record->JPGSubsampling == kHalfChrominance;
  return WriteRows(record->JPGFile, RowsOf(*record), record->jquality, half_chrominance)
             ? 0
             : kFileNotWritten;
} catch (const std::bad_alloc&) {
  return kNoMemory;
}

int OwnJpegLibrary::ijlFree(JPEG_CORE_PROPERTIES* record) {
  return record == nullptr ? kBadRecord : 0;
}

}  // namespace tarnwell
