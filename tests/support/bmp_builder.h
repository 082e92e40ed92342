#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tarnwell {

// A bitmap file to be written field by field, right or wrong. The file's own code is not used, so
// that reader and builder cannot share a mistake.
struct BmpLayout {
  std::string signature = "BM";
  std::uint32_t header_size = 40;
  std::int32_t width = 1;
  std::int32_t height = 1;  // negative: rows stored top to bottom
  std::uint16_t planes = 1;
  std::uint16_t bits = 24;
  std::uint32_t compression = 0;
  std::uint32_t colours_used = 0;
  std::array<std::uint32_t, 4> masks{};                   // red, green, blue, alpha
  std::vector<std::array<std::uint8_t, 3>> palette = {};  // blue, green, red
  std::string gap = {};                                   // between palette and pixel data
  std::optional<std::uint32_t> pixel_offset = {};  // what the field says; right when not given
  std::string data = {};                           // the pixel data as stored
};

inline std::string LittleEndian(std::uint64_t number, int bytes) {
  std::string out;
  for (int i = 0; i < bytes; ++i, number /= 256) out += static_cast<char>(number % 256);
  return out;
}

// The header from its size field on, and masks that follow a header of 40 bytes.
inline std::string BmpHeaderBytes(const BmpLayout& layout) {
  const bool core = layout.header_size == 12;
  std::string out = LittleEndian(layout.header_size, 4);
  out += LittleEndian(static_cast<std::uint32_t>(layout.width), core ? 2 : 4);
  out += LittleEndian(static_cast<std::uint32_t>(layout.height), core ? 2 : 4);
  out += LittleEndian(layout.planes, 2) + LittleEndian(layout.bits, 2);
  if (layout.header_size <= 16) return out;
  out += LittleEndian(layout.compression, 4) + std::string(12, '\0');
  out += LittleEndian(layout.colours_used, 4) + std::string(4, '\0');
  std::size_t masks = 0;
  if (layout.header_size == 40)
    masks = layout.compression == 6 ? 4 : layout.compression == 3 ? 3 : 0;
  if (layout.header_size == 52) masks = 3;
  if (layout.header_size == 56 || layout.header_size > 64) masks = 4;
  for (std::size_t i = 0; i < masks; ++i) out += LittleEndian(layout.masks[i], 4);
  if (layout.header_size > out.size()) out.resize(layout.header_size, '\0');
  return out;
}

inline std::string BuildBmp(const BmpLayout& layout) {
  std::string palette;
  for (const auto& colour : layout.palette) {
    for (const std::uint8_t channel : colour) palette += static_cast<char>(channel);
    if (layout.header_size != 12) palette += '\x7f';  // unused, and not to be taken for anything
  }
  const std::string head = BmpHeaderBytes(layout) + palette + layout.gap;
  const std::uint64_t offset = layout.pixel_offset.value_or(14 + head.size());
  return layout.signature + LittleEndian(14 + head.size() + layout.data.size(), 4) +
         LittleEndian(0, 4) + LittleEndian(offset, 4) + head + layout.data;
}

// The uncompressed pixel data of a picture whose pixel in column x of row y (from the top) is
// value(x, y), `bits` wide: pixels narrower than a byte fill it from the highest bit down.
inline std::string StoredRows(int width, int height, int bits, bool top_down,
                              const std::function<std::uint32_t(int x, int y)>& value) {
  std::string out;
  for (int i = 0; i < height; ++i) {
    const int y = top_down ? i : height - 1 - i;
    std::string row;
    for (int x = 0; x < width; ++x) {
      if (bits >= 8) {
        row += LittleEndian(value(x, y), bits / 8);
        continue;
      }
      if (x * bits % 8 == 0) row += '\0';
      row.back() = static_cast<char>(row.back() | value(x, y) << (8 - bits - x * bits % 8));
    }
    while (row.size() % 4 != 0) row += '\xee';  // padding of any content
    out += row;
  }
  return out;
}

}  // namespace tarnwell
