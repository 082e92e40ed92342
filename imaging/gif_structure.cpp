#include "imaging/gif_structure.h"

#include <algorithm>
#include <cstdint>

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

// Reads on from the front; past the end it gives 0 and remembers.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  bool broke_off() const { return broke_off_; }
  std::size_t at() const { return at_; }

  void Skip(std::size_t count) {
    if (count > bytes_.size() - at_) {
      broke_off_ = true;
      count = bytes_.size() - at_;
    }
    at_ += count;
  }
  int Byte() {
    if (at_ == bytes_.size()) {
      broke_off_ = true;
      return 0;
    }
    return static_cast<std::uint8_t>(bytes_[at_++]);
  }
  int Word() {
    const int low = Byte();
    return low | Byte() << 8;
  }
  // Sub-blocks: a length and that many bytes, up to a length of 0.
  void SkipSubBlocks() {
    while (const int length = Byte()) Skip(static_cast<std::size_t>(length));
  }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
  bool broke_off_ = false;
};

// Bytes of the colour table that the flags announce; 0 when there is none.
std::size_t TableBytes(int flags) {
  return (flags & 0x80) != 0 ? std::size_t{3} << ((flags & 7) + 1) : 0;
}

Status Damaged(const std::string& name, const char* reason) {
  return Status::Error(Failure::kDamaged, name + ": " + reason);
}

// Passes the extensions before the first image. False when there is no image.
bool SkipToImage(Reader& reader) {
  int block = reader.Byte();
  while (block == kExtension) {
    reader.Skip(1);
    reader.SkipSubBlocks();
    block = reader.Byte();
  }
  return block == kImage;
}

}  // namespace

bool IsGif(std::string_view bytes) {
  return bytes.starts_with("GIF87a") || bytes.starts_with("GIF89a");
}

Result<GifFirstFrame> FindGifFirstFrame(std::string_view bytes, const std::string& name) {
  constexpr const char* kBreaksOff = "the file breaks off";
  Reader reader(bytes);
  GifFirstFrame frame;
  reader.Skip(6);
  frame.screen_width = reader.Word();
  frame.screen_height = reader.Word();
  const std::size_t global_table = TableBytes(reader.Byte());
  reader.Skip(2 + global_table);
  if (!SkipToImage(reader)) {
    return Damaged(name, reader.broke_off() ? kBreaksOff : "holds no picture");
  }
  frame.left = reader.Word();
  frame.top = reader.Word();
  frame.width = reader.Word();
  frame.height = reader.Word();
  const std::size_t local_table = TableBytes(reader.Byte());
  reader.Skip(local_table + 1);
  const std::size_t data_start = reader.at();
  reader.SkipSubBlocks();
  frame.end = reader.at();
  // Some writers leave the screen's size out; the frame then is the picture.
  if (frame.screen_width == 0) frame.screen_width = frame.width;
  if (frame.screen_height == 0) frame.screen_height = frame.height;
  const int longest =
      std::max({frame.screen_width, frame.screen_height, frame.width, frame.height});
  if (longest > kMaxSide) {
    return Status::Error(Failure::kTooLarge, name + ": the picture is too large");
  }
  const std::uint64_t most_drawn = (frame.end - data_start) * kMostPixelsPerByte;
  if (reader.broke_off() || Area(frame.width, frame.height) > most_drawn) {
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
