#include "imaging/gif_structure.h"

#include <algorithm>
#include <cstdint>

#include "imaging/byte_reader.h"
#include "imaging/pixel_array.h"

namespace tarnwell {
namespace {

constexpr int kExtension = 0x21;
constexpr int kImage = 0x2C;

// A code has at least 2 bits and stands for at most 4096 pixels.
constexpr std::uint64_t kMostPixelsPerByte = 4 * 4096;
// A frame may be small on a large screen, but a few bytes shall not take gigabytes.
constexpr std::uint64_t kMostEmptyScreen = 1 << 28;

std::uint64_t Area(int width, int height) { return static_cast<std::uint64_t>(width) * height; }

// Sub-blocks: a length and that many bytes, up to a length of 0.
void SkipSubBlocks(ByteReader& in) {
  while (const int length = in.U8()) in.Skip(static_cast<std::uint64_t>(length));
}

// Bytes of the colour table that the flags announce; 0 when there is none.
std::size_t TableBytes(int flags) {
  return (flags & 0x80) != 0 ? std::size_t{3} << ((flags & 7) + 1) : 0;
}

Status Damaged(const std::string& name, const char* reason) {
  return Status::Error(Failure::kDamaged, name + ": " + reason);
}

// Passes the extensions before the first image. False when there is no image.
bool SkipToImage(ByteReader& in) {
  int block = in.U8();
  while (block == kExtension) {
    in.Skip(1);
    SkipSubBlocks(in);
    block = in.U8();
  }
  return block == kImage;
}

}  // namespace

bool IsGif(std::string_view bytes) {
  return bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a");
}

Result<GifFirstFrame> FindGifFirstFrame(std::string_view bytes, const std::string& name) {
  constexpr const char* kBreaksOff = "the file breaks off";
  ByteReader in(bytes);
  GifFirstFrame frame;
  in.Skip(6);
  frame.screen_width = in.U16();
  frame.screen_height = in.U16();
  const std::size_t global_table = TableBytes(in.U8());
  in.Skip(2 + global_table);
  if (!SkipToImage(in)) {
    return Damaged(name, in.ok() ? "holds no picture" : kBreaksOff);
  }
  frame.left = in.U16();
  frame.top = in.U16();
  frame.width = in.U16();
  frame.height = in.U16();
  const std::size_t local_table = TableBytes(in.U8());
  in.Skip(local_table + 1);
  const std::size_t data_start = in.position();
  SkipSubBlocks(in);
  frame.end = in.position();
  // Some writers leave the screen's size out; the frame then is the picture.
  if (frame.screen_width == 0) frame.screen_width = frame.width;
  if (frame.screen_height == 0) frame.screen_height = frame.height;
  const int longest =
      std::max({frame.screen_width, frame.screen_height, frame.width, frame.height});
  if (longest > kMaxSide) {
    return Status::Error(Failure::kTooLarge, name + ": the picture is too large");
  }
  const std::uint64_t most_drawn = (frame.end - data_start) * kMostPixelsPerByte;
  if (!in.ok() || Area(frame.width, frame.height) > most_drawn) {
    return Damaged(name, kBreaksOff);
  }
  if (Area(frame.screen_width, frame.screen_height) > std::max(kMostEmptyScreen, most_drawn)) {
    return Status::Error(Failure::kTooLarge, name + ": the picture is too large");
  }
  if (std::min(frame.width, frame.height) == 0) return Damaged(name, "holds no picture");
  if (global_table + local_table == 0) return Damaged(name, "holds no colours");
  return frame;
}

}  // namespace tarnwell
