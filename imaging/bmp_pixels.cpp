#include "imaging/bmp_pixels.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarnwell {
namespace {

// Bytes from one stored row to the next: rows are padded to 4 bytes.
std::uint64_t StoredRowBytes(const BmpHeader& header) {
  return (static_cast<std::uint64_t>(header.width) * header.bits_per_pixel + 31) / 32 * 4;
}

// Turns the bits of one channel into 0..255, rounded to the nearest (there are no ties: the divisor
// is odd).
class ChannelScale {
 public:
  explicit ChannelScale(BmpChannel channel)
      : shift_(channel.shift),
        highest_((std::uint64_t{1} << channel.bits) - 1),
        in_table_(channel.bits <= 8) {
    if (!in_table_ || channel.bits == 0) return;
    for (std::uint64_t value = 0; value <= highest_; ++value) table_[value] = Scaled(value);
  }

  std::uint8_t operator()(std::uint32_t pixel) const {
    const std::uint64_t value = (pixel >> shift_) & highest_;
    return in_table_ ? table_[value] : Scaled(value);
  }

 private:
  std::uint8_t Scaled(std::uint64_t value) const {
    return static_cast<std::uint8_t>((value * 255 + highest_ / 2) / highest_);
  }

  int shift_;
  std::uint64_t highest_;
  bool in_table_;
  std::array<std::uint8_t, 256> table_{};
};

void ReadIndexedRow(const std::uint8_t* stored, const BmpHeader& header, std::uint8_t* row) {
  const int bits = header.bits_per_pixel;
  const int per_byte = 8 / bits;
  const int mask = (1 << bits) - 1;
  for (int x = 0; x < header.width; ++x) {
    // The leftmost pixel is in the highest bits.
    const int shift = 8 - bits * (x % per_byte + 1);
    const BmpColour& colour = header.palette[(stored[x / per_byte] >> shift) & mask];
    std::copy(colour.begin(), colour.end(), row + x * kBytesPerPixel);
  }
}

void ReadTrueColourRow(const std::uint8_t* stored, int width, std::uint8_t* row) {
  for (int x = 0; x < width; ++x) std::copy_n(stored + x * 3, 3, row + x * kBytesPerPixel);
}

struct PixelScales {
  ChannelScale blue, green, red;
};

void ReadMaskedRow(const std::uint8_t* stored, const BmpHeader& header, const PixelScales& scales,
                   std::uint8_t* row) {
  const int pixel_bytes = header.bits_per_pixel / 8;
  for (int x = 0; x < header.width; ++x, stored += pixel_bytes, row += kBytesPerPixel) {
    std::uint32_t pixel = 0;
    for (int i = 0; i < pixel_bytes; ++i) pixel |= std::uint32_t{stored[i]} << (8 * i);
    row[kBlue] = scales.blue(pixel);
    row[kGreen] = scales.green(pixel);
    row[kRed] = scales.red(pixel);
  }
}

}  // namespace

bool HasAllPlainPixels(std::string_view bytes, const BmpHeader& header) {
  const std::uint64_t last_row =
      (static_cast<std::uint64_t>(header.width) * header.bits_per_pixel + 7) / 8;
  const std::uint64_t needed = StoredRowBytes(header) * (header.height - 1) + last_row;
  return header.pixel_offset <= bytes.size() && needed <= bytes.size() - header.pixel_offset;
}

bool ReadPlainPixels(std::string_view bytes, const BmpHeader& header, MutablePixelView pixels,
                     const GoOn& go_on) {
  const auto* data = reinterpret_cast<const std::uint8_t*>(bytes.data()) + header.pixel_offset;
  const PixelScales scales = {ChannelScale(header.blue), ChannelScale(header.green),
                              ChannelScale(header.red)};
  for (int y = 0; y < header.height; ++y) {
    if (!go_on(1.0 * y / header.height)) return false;
    const std::uint8_t* stored = data + StoredRowBytes(header) * y;
    std::uint8_t* row = pixels.at(0, header.PictureRow(y));
    if (header.bits_per_pixel <= 8) {
      ReadIndexedRow(stored, header, row);
    } else if (header.bits_per_pixel == 24) {
      ReadTrueColourRow(stored, header.width, row);
    } else {
      ReadMaskedRow(stored, header, scales, row);
    }
  }
  return true;
}

}  // namespace tarnwell
