#include "imaging/bmp_file.h"

#include <utility>

#include "imaging/bmp_header.h"
#include "imaging/bmp_pixels.h"
#include "imaging/bmp_rle.h"

namespace tarnwell {
namespace {

Status BreaksOff() {
  return Status::Error(Failure::kDamaged, "the file breaks off before its last pixel");
}

// The messages are still without the file's name.
Result<Picture> DecodeUnnamed(std::string_view bytes, const GoOn& go_on) {
  if (!IsBmp(bytes)) return Status::Error(Failure::kUnsupported, "this is not a bitmap");
  Result<BmpHeader> header = ParseBmpHeader(bytes);
  if (!header.ok()) return header.status;

  const bool plain = header->compression == BmpCompression::kNone;
  if (!(plain ? HasAllPlainPixels(bytes, *header) : IsPlausibleRle(bytes, *header))) {
    return BreaksOff();
  }
  std::shared_ptr<PixelArray> pixels = TryMakePixels(header->width, header->height);
  if (!pixels) {
    return Status::Error(Failure::kTooLarge, "there is not enough memory for this picture");
  }
  const bool whole = plain ? ReadPlainPixels(bytes, *header, pixels->mutable_view(), go_on)
                           : ReadRlePixels(bytes, *header, pixels->mutable_view(), go_on);
  if (!go_on(1)) return Status::Error(Failure::kCancelled, "was cancelled");
  if (!whole) return BreaksOff();
  return Picture(std::move(pixels));
}

}  // namespace

bool IsBmp(std::string_view bytes) { return bytes.substr(0, 2) == "BM"; }

Result<Picture> DecodeBmp(std::string_view bytes, const std::string& name, const GoOn& go_on) {
  Result<Picture> decoded = DecodeUnnamed(bytes, go_on);
  if (!decoded.ok()) decoded.status.message = name + ": " + decoded.status.message;
  return decoded;
}

}  // namespace tarnwell
