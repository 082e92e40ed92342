#include "imaging/jpeg_segments.h"

#include <cassert>

#include "imaging/jpeg_structure.h"

namespace tarnwell {
namespace {

enum Marker : std::uint8_t {
  kFill = 0xFF,
  kStuffedByte = 0x00,
  kPrivate = 0x01,
  kFirstFrame = 0xC0,
  kHuffmanTables = 0xC4,
  kReservedFrame = 0xC8,
  kArithmeticTables = 0xCC,
  kLastFrame = 0xCF,
  kFirstRestart = 0xD0,
  kStartOfImage = 0xD8,
};

bool StandsAlone(std::uint8_t marker) {
  return marker == kStuffedByte || marker == kPrivate ||
         (marker >= kFirstRestart && marker <= kStartOfImage);
}

}  // namespace

bool JpegWalk::Next(JpegSegment& segment) {
  while ((at_ = jpeg_.find('\xFF', at_)) != jpeg_.npos && at_ + 1 < jpeg_.size()) {
    const auto marker = static_cast<std::uint8_t>(jpeg_[++at_]);
    if (marker == kFill) continue;
    ++at_;
    if (StandsAlone(marker)) continue;
    segment = {marker, {}};
    return marker == kEndOfImageMarker || TakeContent(segment);
  }
  return false;
}

bool JpegWalk::TakeContent(JpegSegment& segment) {
  if (jpeg_.size() - at_ < 2) return false;
  const std::size_t length =
      static_cast<std::uint8_t>(jpeg_[at_]) << 8 | static_cast<std::uint8_t>(jpeg_[at_ + 1]);
  if (length < 2 || length > jpeg_.size() - at_) return false;
  segment.content = jpeg_.substr(at_ + 2, length - 2);
  at_ += length;
  return true;
}

bool IsFrameMarker(std::uint8_t marker) {
  return marker >= kFirstFrame && marker <= kLastFrame && marker != kHuffmanTables &&
         marker != kReservedFrame && marker != kArithmeticTables;
}

std::vector<JpegSegment> SegmentsBeforeScan(std::string_view jpeg) {
  std::vector<JpegSegment> segments;
  if (!IsJpeg(jpeg)) return segments;
  JpegWalk walk(jpeg);
  JpegSegment segment;
  while (walk.Next(segment) && segment.marker != kStartOfScanMarker &&
         segment.marker != kEndOfImageMarker) {
    segments.push_back(segment);
  }
  return segments;
}

std::string_view BytesBehindPicture(std::string_view jpeg) {
  if (!IsJpeg(jpeg)) return {};
  JpegWalk walk(jpeg);
  JpegSegment segment;
  while (walk.Next(segment)) {
    if (segment.marker == kEndOfImageMarker) return walk.rest();
  }
  return {};
}

void AddSegment(std::string& out, std::uint8_t marker, std::string_view content) {
  assert(content.size() <= kMostSegmentContent);
  const std::size_t length = content.size() + 2;
  out += '\xFF';
  out += static_cast<char>(marker);
  out += static_cast<char>(length >> 8);
  out += static_cast<char>(length & 0xFF);
  out += content;
}

std::string WithSegments(std::string_view jpeg, std::string_view segments) {
  if (!IsJpeg(jpeg)) return std::string(jpeg);
  constexpr std::size_t kBehindStart = 2;
  JpegWalk walk(jpeg);
  JpegSegment first;
  std::size_t at = kBehindStart;
  if (walk.Next(first) && first.IsApp(0)) at = jpeg.size() - walk.rest().size();
  const bool own_header = segments.starts_with("\xFF\xE0");
  std::string joined;
  joined.reserve(jpeg.size() + segments.size());
  joined += jpeg.substr(0, own_header ? kBehindStart : at);
  joined += segments;
  joined += jpeg.substr(at);
  return joined;
}

}  // namespace tarnwell
