#include "imaging/jpeg_structure.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "imaging/pixel_array.h"

namespace tarnwell {
namespace {

enum Marker : std::uint8_t {
  kBaseline = 0xC0,
  kProgressive = 0xC2,
  kHuffmanTables = 0xC4,
  kReservedFrame = 0xC8,
  kArithmeticTables = 0xCC,
  kLastFrame = 0xCF,
  kFirstRestart = 0xD0,
  kStartOfImage = 0xD8,
  kEndOfImage = 0xD9,
  kStartOfScan = 0xDA,
};

struct Frame {
  std::uint8_t marker;
  int bits;
  int height;
  int width;
  int components;
};

int ByteAt(std::string_view bytes, std::size_t at) { return static_cast<std::uint8_t>(bytes[at]); }
int WordAt(std::string_view bytes, std::size_t at) {
  return ByteAt(bytes, at) << 8 | ByteAt(bytes, at + 1);
}

bool IsFrame(int marker) {
  return marker >= kBaseline && marker <= kLastFrame && marker != kHuffmanTables &&
         marker != kReservedFrame && marker != kArithmeticTables;
}

// Markers without a length behind them; 0 is a stuffed byte of scan data, 1 a private marker, and
// 0xFF fills.
bool StandsAlone(int marker) {
  return marker <= 1 || (marker >= kFirstRestart && marker <= kStartOfImage);
}

struct Walk {
  std::optional<Frame> frame;
  bool complete = false;  // a scan and the end marker were met
};

Walk WalkSegments(std::string_view bytes) {
  Walk walk;
  bool scan_met = false;
  std::size_t at = 0;
  while ((at = bytes.find('\xFF', at)) != bytes.npos && at + 1 < bytes.size()) {
    const int marker = ByteAt(bytes, ++at);
    if (marker == 0xFF) continue;
    ++at;
    if (StandsAlone(marker)) continue;
    if (marker == kEndOfImage) {
      walk.complete = scan_met;
      break;
    }
    if (bytes.size() - at < 2) break;
    const auto length = static_cast<std::size_t>(WordAt(bytes, at));
    if (length < 2 || length > bytes.size() - at) break;
    if (IsFrame(marker) && !walk.frame) {
      if (length < 8) break;
      walk.frame = Frame{static_cast<std::uint8_t>(marker), ByteAt(bytes, at + 2),
                         WordAt(bytes, at + 3), WordAt(bytes, at + 5), ByteAt(bytes, at + 7)};
    }
    if (marker == kStartOfScan) scan_met = true;
    at += length;
  }
  return walk;
}

}  // namespace

bool IsJpeg(std::string_view bytes) { return bytes.starts_with("\xFF\xD8\xFF"); }

Status CheckJpeg(std::string_view bytes, const std::string& name) {
  const Walk walk = WalkSegments(bytes);
  if (!walk.frame) return Status::Error(Failure::kDamaged, name + ": the file is damaged");
  const Frame& frame = *walk.frame;
  const bool known_components =
      frame.components == 1 || frame.components == 3 || frame.components == 4;
  if (frame.marker > kProgressive || frame.bits != 8 || !known_components) {
    return Status::Error(Failure::kUnsupported, name + ": this kind of JPEG file cannot be read");
  }
  if (std::max(frame.width, frame.height) > kMaxSide) {
    return Status::Error(Failure::kTooLarge, name + ": the picture is too large");
  }
  if (frame.width == 0 || frame.height == 0) {
    return Status::Error(Failure::kDamaged, name + ": the file is damaged");
  }
  if (!walk.complete) {
    return Status::Error(Failure::kDamaged, name + ": the file breaks off before its last pixel");
  }
  return Status::Ok();
}

}  // namespace tarnwell
