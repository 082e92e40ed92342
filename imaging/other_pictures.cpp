#include "imaging/other_pictures.h"

#include <algorithm>

#include "imaging/big_endian.h"

namespace tarnwell {
namespace {

using namespace std::string_view_literals;

// Of a file of the family that phones use for HEIC and AVIF: its first box lists what it can be
// read as, four characters each.
const char* KindOfBoxes(std::string_view bytes) {
  if (bytes.size() < 12 || bytes.substr(4, 4) != "ftyp") return nullptr;
  const std::size_t size = WordAt(bytes, 2);
  const std::string_view box = bytes.substr(0, std::min(size, bytes.size()));
  const char* kind = nullptr;
  for (std::size_t at = 8; at + 4 <= box.size(); at += 4) {
    const std::string_view brand = box.substr(at, 4);
    if (brand == "avif" || brand == "avis") return "an AVIF";
    if (brand.starts_with("he") || brand == "mif1" || brand == "msf1") kind = "a HEIC";
  }
  return kind;
}

const char* OtherKind(std::string_view bytes) {
  if (bytes.starts_with("\x89PNG\r\n\x1A\n"sv)) return "a PNG";
  if (bytes.starts_with("RIFF") && bytes.substr(0, 12).ends_with("WEBP")) return "a WebP";
  if (bytes.starts_with("II*\0"sv) || bytes.starts_with("MM\0*"sv)) return "a TIFF or raw";
  if (bytes.starts_with("\xFF\x0A"sv) || bytes.starts_with("\0\0\0\x0CJXL \r\n"sv)) {
    return "a JPEG XL";
  }
  return KindOfBoxes(bytes);
}

}  // namespace

Status NoPhoto(std::string_view bytes, const std::string& name) {
  const char* const kind = OtherKind(bytes);
  return Status::Error(
      Failure::kUnsupported,
      name + ": " +
          (kind == nullptr
               ? std::string("not a BMP, GIF or JPEG picture")
               : std::string("is ") + kind + " picture, which cannot be read; export it as JPEG"));
}

}  // namespace tarnwell
