#include "imaging/jpeg_structure.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "imaging/big_endian.h"
#include "imaging/jpeg_segments.h"
#include "imaging/pixel_array.h"

namespace tarnwell {
namespace {

constexpr int kProgressive = 0xC2;

// Every scan of a progressive picture goes over all of its pixels, and a scan may take only a few
// bytes of the file. Photos have about ten scans; this allows 20 at 200 megapixels, and more for
// smaller ones.
constexpr double kMostScannedPixels = 4e9;
// Setting up the tables of a scan costs as much as going over some pixels.
constexpr double kPixelsPerScanSetup = 4096;

struct Frame {
  int marker = 0;
  int bits = 0;
  int height = 0;
  int width = 0;
  int components = 0;
  std::uint64_t blocks = 0;  // of 8 x 8 samples, over all components; 0: the header is damaged
};

// Blocks of all components, of which each has a resolution of its own: `factors` holds three bytes
// a component, the middle one its factors across (high half) and down.
std::uint64_t CountBlocks(std::int64_t width, std::int64_t height, std::string_view factors) {
  int most_across = 1, most_down = 1;
  for (std::size_t at = 1; at < factors.size(); at += 3) {
    most_across = std::max(most_across, ByteAt(factors, at) >> 4);
    most_down = std::max(most_down, ByteAt(factors, at) & 15);
  }
  std::uint64_t blocks = 0;
  for (std::size_t at = 1; at < factors.size(); at += 3) {
    const int across = ByteAt(factors, at) >> 4, down = ByteAt(factors, at) & 15;
    if (across < 1 || across > 4 || down < 1 || down > 4) return 0;
    const auto block_columns = (width * across + most_across * 8 - 1) / (most_across * 8);
    const auto block_rows = (height * down + most_down * 8 - 1) / (most_down * 8);
    blocks += static_cast<std::uint64_t>(block_columns * block_rows);
  }
  return blocks;
}

Frame ReadFrame(const JpegSegment& segment) {
  Frame frame{.marker = segment.marker};
  const std::string_view header = segment.content;
  if (header.size() < 6) return frame;
  frame.bits = ByteAt(header, 0);
  frame.height = WordAt(header, 1);
  frame.width = WordAt(header, 3);
  frame.components = ByteAt(header, 5);
  const std::string_view factors = header.substr(6);
  if (factors.size() == static_cast<std::size_t>(frame.components) * 3) {
    frame.blocks = CountBlocks(frame.width, frame.height, factors);
  }
  return frame;
}

struct Structure {
  std::optional<Frame> frame;
  int scans = 0;
  bool complete = false;  // a scan and the end marker were met
};

Structure ReadStructure(std::string_view bytes) {
  Structure structure;
  JpegWalk walk(bytes);
  JpegSegment segment;
  while (walk.Next(segment)) {
    if (segment.marker == kEndOfImageMarker) {
      structure.complete = structure.scans > 0;
      break;
    }
    if (IsFrameMarker(segment.marker) && !structure.frame) structure.frame = ReadFrame(segment);
    if (segment.marker == kStartOfScanMarker) ++structure.scans;
  }
  return structure;
}

}  // namespace

bool IsJpeg(std::string_view bytes) { return bytes.starts_with("\xFF\xD8\xFF"); }

Result<PictureSize> CheckJpeg(std::string_view bytes, const std::string& name) {
  const Structure structure = ReadStructure(bytes);
  const auto fails = [&](Failure failure, const char* reason) {
    return Status::Error(failure, name + ": " + reason);
  };
  if (!structure.frame) return fails(Failure::kDamaged, "the file breaks off");
  const Frame& frame = *structure.frame;
  if (frame.marker > kProgressive || (frame.bits != 8 && frame.bits != 0)) {
    return fails(Failure::kUnsupported, "a kind of JPEG that cannot be read");
  }
  if (std::max(frame.width, frame.height) > kMaxSide) {
    return fails(Failure::kTooLarge, "the picture is too large");
  }
  if (frame.blocks == 0) return fails(Failure::kDamaged, "the picture data is damaged");
  if (frame.components != 1 && frame.components != 3 && frame.components != 4) {
    return fails(Failure::kUnsupported, "a kind of JPEG that cannot be read");
  }
  const double pixels = static_cast<double>(frame.width) * frame.height;
  if (structure.scans * (pixels + kPixelsPerScanSetup) > kMostScannedPixels) {
    return fails(Failure::kTooLarge, "the picture is too large");
  }
  // Every block has a code of at least one bit for its mean.
  if (!structure.complete || frame.blocks > std::uint64_t{bytes.size()} * 8) {
    return fails(Failure::kDamaged, "the file breaks off");
  }
  return PictureSize{frame.width, frame.height};
}

}  // namespace tarnwell
