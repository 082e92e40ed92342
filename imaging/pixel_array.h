#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarnwell {

// Channels of a pixel, in memory order. The fourth byte is unused: read as it comes, written back
// as it is.
enum Channel { kBlue = 0, kGreen = 1, kRed = 2, kUnused = 3 };
inline constexpr int kBytesPerPixel = 4;

// Width and height are 16-bit signed integers by rule, so this is the longest side.
inline constexpr int kMaxSide = 32767;

// Red + green + blue, 0 to 765.
inline int SumOfChannels(const std::uint8_t* pixel) {
  return pixel[kBlue] + pixel[kGreen] + pixel[kRed];
}

// A view of 32-bit pixels, rows top-down without padding:
//
//   B G R x  B G R x ...   <- row 0, the top row; column 0 is at the left
//   B G R x  B G R x ...   <- row 1
//
// Columns and rows count from 0 here; the rules in comments that speak of column 1 mean column 0.
// The view does not own its pixels.
template <typename Byte>
struct BasicPixelView {
  Byte* data = nullptr;
  int width = 0;
  int height = 0;

  bool empty() const { return width == 0 || height == 0; }
  std::size_t stride() const { return static_cast<std::size_t>(width) * kBytesPerPixel; }
  std::size_t pixel_count() const { return static_cast<std::size_t>(width) * height; }
  std::size_t byte_count() const { return stride() * height; }
  bool Contains(int x, int y) const { return x >= 0 && x < width && y >= 0 && y < height; }

  // First byte (blue) of the pixel; the caller guarantees Contains(x, y).
  Byte* at(int x, int y) const { return data + y * stride() + static_cast<std::size_t>(x) * 4; }

  operator BasicPixelView<const Byte>() const { return {data, width, height}; }  // NOLINT
};
using PixelView = BasicPixelView<const std::uint8_t>;
using MutablePixelView = BasicPixelView<std::uint8_t>;

// An owned array of 32-bit pixels in the layout of BasicPixelView. New pixels are 0 in all four
// bytes.
class PixelArray {
 public:
  PixelArray() = default;
  // Both sides 0, or both in 1..kMaxSide. Throws std::bad_alloc when memory does not suffice;
  // TryMakePixels is the form for sizes that come from a file.
  PixelArray(int width, int height);
  PixelArray(const PixelArray& other);
  PixelArray(PixelArray&& other) noexcept;  // leaves `other` empty
  PixelArray& operator=(PixelArray other) noexcept;

  int width() const { return width_; }
  int height() const { return height_; }
  PixelView view() const { return {bytes_.get(), width_, height_}; }
  MutablePixelView mutable_view() { return {bytes_.get(), width_, height_}; }

  bool operator==(const PixelArray& other) const;

 private:
  struct Returner {
    std::size_t bytes;
    void operator()(std::uint8_t* memory) const;
  };

  int width_ = 0;
  int height_ = 0;
  std::unique_ptr<std::uint8_t[], Returner> bytes_;
};

// A finished picture, shared by the surfaces that show it and changed by none of them. Null means
// an empty picture.
using Picture = std::shared_ptr<const PixelArray>;

// Null when a side is outside 1..kMaxSide or memory does not suffice.
std::shared_ptr<PixelArray> TryMakePixels(std::int64_t width, std::int64_t height);

// A copy of `source`, or null when memory does not suffice.
std::shared_ptr<PixelArray> TryCopyPixels(const PixelView& source);

}  // namespace tarnwell
