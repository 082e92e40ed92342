#include <cstdint>
#include <new>

#include "imaging/bmp_file.h"

namespace tarnwell {
namespace {

constexpr std::uint64_t kHeaderBytes = 14 + 40;

void Append(std::string& out, std::uint32_t number, int count) {
  for (int i = 0; i < count; ++i) out.push_back(static_cast<char>((number >> (8 * i)) & 255));
}

// `pixel_bytes`, padding included, stays below 2^32: the longest sides give 3.3 thousand million.
void AppendHeaders(std::string& out, const PixelView& picture, std::uint64_t pixel_bytes) {
  out += "BM";
  Append(out, static_cast<std::uint32_t>(kHeaderBytes + pixel_bytes), 4);
  Append(out, 0, 4);  // reserved
  Append(out, kHeaderBytes, 4);

  Append(out, 40, 4);
  Append(out, static_cast<std::uint32_t>(picture.width), 4);
  Append(out, static_cast<std::uint32_t>(picture.height), 4);  // positive: bottom to top
  Append(out, 1, 2);                                           // planes
  Append(out, 24, 2);                                          // bits per pixel
  Append(out, 0, 4);                                           // no compression
  Append(out, static_cast<std::uint32_t>(pixel_bytes), 4);
  Append(out, 0, 4);  // resolution: not known
  Append(out, 0, 4);
  Append(out, 0, 4);  // no palette
  Append(out, 0, 4);
}

void AppendRow(std::string& out, const PixelView& picture, int y, std::uint64_t padding) {
  const std::uint8_t* pixel = picture.at(0, y);
  for (int x = 0; x < picture.width; ++x, pixel += kBytesPerPixel) {
    out.append(reinterpret_cast<const char*>(pixel), 3);
  }
  out.append(static_cast<std::size_t>(padding), '\0');
}

}  // namespace

std::string EncodeBmp24(const PixelView& picture, const GoOn& go_on) {
  std::string out;
  if (picture.empty()) return out;
  const std::uint64_t row_bytes = static_cast<std::uint64_t>(picture.width) * 3;
  const std::uint64_t padding = (4 - row_bytes % 4) % 4;
  const std::uint64_t pixel_bytes = (row_bytes + padding) * picture.height;
  if (kHeaderBytes + pixel_bytes > out.max_size()) return out;
  try {
    out.reserve(static_cast<std::size_t>(kHeaderBytes + pixel_bytes));
  } catch (const std::bad_alloc&) {
    return out;
  }
  AppendHeaders(out, picture, pixel_bytes);
  for (int y = picture.height - 1; y >= 0; --y) {
    if (!go_on(1 - (y + 1.0) / picture.height)) return {};
    AppendRow(out, picture, y, padding);
  }
  return out;
}

}  // namespace tarnwell
