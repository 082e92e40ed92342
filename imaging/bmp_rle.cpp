#include "imaging/bmp_rle.h"

#include <algorithm>
#include <cstdint>

#include "imaging/byte_reader.h"

namespace tarnwell {
namespace {

constexpr std::uint64_t kMostPixelsPerCode = 255;
constexpr std::uint64_t kBytesPerCode = 2;
constexpr std::uint64_t kAlwaysPlausible = 1 << 20;

// Codes that are read between two questions whether to go on.
constexpr int kCodesAtOnce = 4096;

// The second byte of a code whose first byte, the count, is 0. From 3 on it is the length of an
// absolute run.
enum Escape { kEndOfLine = 0, kEndOfBitmap = 1, kDelta = 2 };

// The place of the next pixel. The column never passes the row's end; the row may pass the last.
class Pen {
 public:
  Pen(const BmpHeader& header, MutablePixelView pixels) : header_(header), pixels_(pixels) {}

  void Put(int index) {
    if (column_ == header_.width) return;
    const BmpColour& colour = header_.palette[index];
    std::copy(colour.begin(), colour.end(), pixels_.at(column_, header_.PictureRow(row_)));
    ++column_;
  }

  void NextRow() {
    column_ = 0;
    ++row_;
  }

  void Move(int columns, int rows) {
    column_ = std::min(column_ + columns, header_.width);
    row_ += rows;
  }

  double share_done() const { return std::min(1.0 * row_ / header_.height, 1.0); }
  bool past_last_row() const { return row_ >= header_.height; }
  bool complete() const {
    return past_last_row() || (row_ == header_.height - 1 && column_ == header_.width);
  }

 private:
  const BmpHeader& header_;
  MutablePixelView pixels_;
  int column_ = 0;
  int row_ = 0;  // as stored
};

// The colour index of pixel i inside a run: at 4 bits a byte holds two pixels, the left one high.
int IndexAt(int bits, int i, std::uint8_t byte) {
  if (bits == 8) return byte;
  return i % 2 == 0 ? byte >> 4 : byte & 15;
}

void PutRun(Pen& pen, int bits, int count, std::uint8_t byte) {
  for (int i = 0; i < count; ++i) pen.Put(IndexAt(bits, i, byte));
}

// Pixels that stand there one by one, padded to an even number of bytes.
void PutAbsoluteRun(Pen& pen, int bits, int count, ByteReader& in) {
  const int per_byte = 8 / bits;
  const int run_bytes = (count + per_byte - 1) / per_byte;
  std::uint8_t byte = 0;
  for (int i = 0; i < count && in.ok(); ++i) {
    if (i % per_byte == 0) byte = in.U8();
    if (in.ok()) pen.Put(IndexAt(bits, i, byte));
  }
  if (run_bytes % 2 != 0) in.Skip(1);
}

void FillWithColour0(const BmpHeader& header, MutablePixelView pixels) {
  const BmpColour& colour = header.palette[0];
  std::uint8_t* end = pixels.data + pixels.byte_count();
  for (std::uint8_t* at = pixels.data; at != end; at += kBytesPerPixel) {
    std::copy(colour.begin(), colour.end(), at);
  }
}

}  // namespace

bool IsPlausibleRle(std::string_view bytes, const BmpHeader& header) {
  if (header.pixel_offset >= bytes.size()) return false;
  const std::uint64_t pixels = static_cast<std::uint64_t>(header.width) * header.height;
  const std::uint64_t codes = (bytes.size() - header.pixel_offset) / kBytesPerCode;
  return pixels <= std::max(kAlwaysPlausible, codes * kMostPixelsPerCode);
}

bool ReadRlePixels(std::string_view bytes, const BmpHeader& header, MutablePixelView pixels,
                   const GoOn& go_on) {
  FillWithColour0(header, pixels);
  Pen pen(header, pixels);
  ByteReader in(bytes, header.pixel_offset);
  for (int codes = 0; !pen.past_last_row(); codes = (codes + 1) % kCodesAtOnce) {
    if (codes == 0 && !go_on(pen.share_done())) return false;
    const std::uint8_t count = in.U8();
    const std::uint8_t second = in.U8();
    if (!in.ok()) break;
    if (count > 0) {
      PutRun(pen, header.bits_per_pixel, count, second);
    } else if (second == kEndOfLine) {
      pen.NextRow();
    } else if (second == kEndOfBitmap) {
      return true;
    } else if (second == kDelta) {
      const std::uint8_t columns = in.U8();
      const std::uint8_t rows = in.U8();
      if (in.ok()) pen.Move(columns, rows);
    } else {
      PutAbsoluteRun(pen, header.bits_per_pixel, second, in);
    }
  }
  return pen.complete();
}

}  // namespace tarnwell
