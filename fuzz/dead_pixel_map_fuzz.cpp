#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "deadpixels/dead_pixel_map.h"
#include "deadpixels/repair_dead_pixels.h"
#include "imaging/bmp_file.h"
#include "imaging/bmp_header.h"

namespace {

using namespace tarnwell;

PixelArray Photo(int width, int height) {
  PixelArray photo(width, height);
  std::uint8_t* bytes = photo.mutable_view().data;
  for (std::size_t i = 0; i < photo.view().byte_count(); ++i) {
    bytes[i] = static_cast<std::uint8_t>(100 + i * 7 % 50);
  }
  return photo;
}

// Marked pixels take colours from between those of others; all others stay.
void Repair(const PixelView& map, int threshold) {
  const PixelArray photo = Photo(map.width, map.height);
  PixelArray repaired = photo;
  RepairDeadPixels(repaired.mutable_view(), map, threshold);
  for (std::size_t i = 0; i < photo.view().byte_count(); ++i) {
    const std::uint8_t before = photo.view().data[i], after = repaired.view().data[i];
    const bool marked = map.data[i / kBytesPerPixel * kBytesPerPixel + kRed] > threshold;
    if (!marked && after != before) std::abort();
    if (after < 100 || after >= 150) std::abort();
  }
}

// As a test shot, whatever it shows.
void Assess(const PixelView& shot) {
  DeadPixelEvidence evidence(shot.width, shot.height);
  for (const ShotKind kind : {ShotKind::kDark, ShotKind::kLight}) {
    if (!evidence.Add(shot, kind, [](double) { return true; })) std::abort();
  }
  const PixelArray map = evidence.Map();
  if (CountStuck(map.view()) > map.view().pixel_count()) std::abort();
  KindOfShot(shot);
  SharesColours(shot);
}

}  // namespace

// Any bitmap serves as a map and as a test shot of a photo of its size.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::int64_t kMostPixels = 512;  // more take their time and show nothing new
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto header = ParseBmpHeader(bytes);
  if (!header.ok() || std::int64_t{header->width} * header->height > kMostPixels) return 0;
  const Result<Picture> map = DecodeBmp(bytes, "map.bmp");
  if (!map.ok()) return 0;
  Repair((*map)->view(), data[size - 1] % 101);
  Assess((*map)->view());
  return 0;
}
