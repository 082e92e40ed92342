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

// Every scan of a progressive picture goes over all of its pixels, and a scan may take only a few
// bytes. Photos have about ten scans; this allows 20 at 200 megapixels, and more for smaller ones.
// The constant per scan stands for setting up its tables.
constexpr double kMostScannedPixels = 4e9;
constexpr double kPixelsPerScanSetup = 4096;

struct Frame {
  int marker = 0;
  int bits = 0;
  int height = 0;
  int width = 0;
  int components = 0;
  std::uint64_t blocks = 0;  // of 8 x 8 samples, over all components; 0: the header is damaged
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

// `segment` starts with its length.
Frame ReadFrame(int marker, std::string_view segment) {
  Frame frame{.marker = marker};
  if (segment.size() < 8) return frame;
  frame.bits = ByteAt(segment, 2);
  frame.height = WordAt(segment, 3);
  frame.width = WordAt(segment, 5);
  frame.components = ByteAt(segment, 7);
  const std::string_view factors = segment.substr(8);
  if (factors.size() == static_cast<std::size_t>(frame.components) * 3) {
    frame.blocks = CountBlocks(frame.width, frame.height, factors);
  }
  return frame;
}

struct Walk {
  std::optional<Frame> frame;
  int scans = 0;
  bool complete = false;  // a scan and the end marker were met
};

Walk WalkSegments(std::string_view bytes) {
  Walk walk;
  std::size_t at = 0;
  while ((at = bytes.find('\xFF', at)) != bytes.npos && at + 1 < bytes.size()) {
    const int marker = ByteAt(bytes, ++at);
    if (marker == 0xFF) continue;
    ++at;
    if (StandsAlone(marker)) continue;
    if (marker == kEndOfImage) {
      walk.complete = walk.scans > 0;
      break;
    }
    if (bytes.size() - at < 2) break;
    const auto length = static_cast<std::size_t>(WordAt(bytes, at));
    if (length < 2 || length > bytes.size() - at) break;
    if (IsFrame(marker) && !walk.frame) walk.frame = ReadFrame(marker, bytes.substr(at, length));
    if (marker == kStartOfScan) ++walk.scans;
    at += length;
  }
  return walk;
}

}  // namespace

bool IsJpeg(std::string_view bytes) { return bytes.starts_with("\xFF\xD8\xFF"); }

Result<PictureSize> CheckJpeg(std::string_view bytes, const std::string& name) {
  const Walk walk = WalkSegments(bytes);
  const auto fails = [&](Failure failure, const char* reason) {
    return Status::Error(failure, name + ": " + reason);
  };
  if (!walk.frame) return fails(Failure::kDamaged, "the file breaks off");
  const Frame& frame = *walk.frame;
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
  if (walk.scans * (pixels + kPixelsPerScanSetup) > kMostScannedPixels) {
    return fails(Failure::kTooLarge, "the picture is too large");
  }
  // Every block has a code of at least one bit for its mean.
  if (!walk.complete || frame.blocks > std::uint64_t{bytes.size()} * 8) {
    return fails(Failure::kDamaged, "the file breaks off");
  }
  return PictureSize{frame.width, frame.height};
}

}  // namespace tarnwell
