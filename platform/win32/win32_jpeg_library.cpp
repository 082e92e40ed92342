#include "platform/win32/win32_jpeg_library.h"

#include <new>

#include "imaging/jpeg_segments.h"
#include "platform/win32/file_handle.h"
#include "platform/win32/wide_path.h"
#include "platform/win32/win32_error.h"
#include "platform/win32/win32_files.h"

namespace tarnwell {
bool Win32JpegLibrary::WriteRows(const std::string& path, const BgrRows& rows, int quality,
                                 bool half_chrominance) {
  return Win32Files().Replace(path, EncodeJpeg(rows, quality, half_chrominance)).ok();
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
