#include "imaging/jpeg_stripes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarnwell {
namespace {

constexpr int kMostUnits = 65535;  // a restart interval has 16 bits

// Enough for several threads to end at about the same time; fewer, larger ones would save nothing.
constexpr int kMostStripes = 32;
// A stripe below this size costs more for its tables than for its pixels.
constexpr std::int64_t kLeastPixels = 128 * 1024;

int DividedUp(std::int64_t number, std::int64_t by) {
  return static_cast<int>((number + by - 1) / by);
}

// Where a file's frame header and its coded data begin. The files are our own: their segments stand
// in a row up to the one scan.
struct Layout {
  std::size_t frame = 0;  // its marker
  std::size_t data = 0;
};

Layout LayoutOf(std::string_view file) {
  constexpr int kBaseline = 0xC0, kScan = 0xDA;
  const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(file[at]); };
  Layout layout;
  for (std::size_t at = 2;;) {
    const int marker = byte(at + 1);
    if (marker == kBaseline) layout.frame = at;
    at += 2 + (std::size_t{byte(at + 2)} << 8 | byte(at + 3));
    if (marker == kScan) {
      layout.data = at;
      return layout;
    }
  }
}

}  // namespace

JpegStripes JpegStripesOf(int width, int height, int unit_side) {
  const int across = DividedUp(width, unit_side);
  const int down = DividedUp(height, unit_side);
  const std::int64_t least = DividedUp(kLeastPixels, std::int64_t{across} * unit_side * unit_side);
  const std::int64_t wanted = std::max<std::int64_t>(DividedUp(down, kMostStripes), least);
  const int units =
      static_cast<int>(std::clamp<std::int64_t>(wanted, 1, std::min(down, kMostUnits / across)));
  const int count = DividedUp(down, units);
  return {count, units * unit_side, count == 1 ? 0 : units * across};
}

std::string_view CodedDataOf(std::string_view file) {
  constexpr std::size_t kEndMarker = 2;
  const std::size_t begin = LayoutOf(file).data;
  return file.substr(begin, file.size() - kEndMarker - begin);
}

JpegInPieces JoinJpegStripes(const std::vector<std::string_view>& stripes, int height) {
  constexpr std::string_view kMarkers =
      "\xFF\xD0\xFF\xD1\xFF\xD2\xFF\xD3\xFF\xD4\xFF\xD5\xFF\xD6\xFF\xD7\xFF\xD9";
  const Layout first = LayoutOf(stripes.front());
  JpegInPieces file = {std::string(stripes.front().substr(0, first.data)), {}};
  // Marker, length, bits per sample, then the height.
  file.header[first.frame + 5] = static_cast<char>(height >> 8);
  file.header[first.frame + 6] = static_cast<char>(height & 0xFF);
  for (std::size_t i = 0; i < stripes.size(); ++i) {
    if (i > 0) file.data.push_back(kMarkers.substr((i - 1) % 8 * 2, 2));
    file.data.push_back(CodedDataOf(stripes[i]));
  }
  file.data.push_back(kMarkers.substr(16));
  return file;
}

}  // namespace tarnwell
