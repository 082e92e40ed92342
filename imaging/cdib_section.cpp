#include "imaging/cdib_section.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <random>
#include <stdexcept>

#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/dialogs.h"

namespace tarnwell {
namespace {

constexpr int kBytes = 3;  // blue, green, red

// Positions begin..end-1 along one axis, counted from the first requested pixel.
struct Part {
  int begin = 0;
  int end = 0;
};

// The part of `count` pixels that lies inside both the source, from `source_start` on, and the
// target, from `target_start` on. Wide integers: starts may come from anywhere.
Part CommonPart(std::int64_t count, std::int64_t source_start, std::int64_t source_side,
                std::int64_t target_start, std::int64_t target_side) {
  const std::int64_t begin = std::max({std::int64_t{0}, -source_start, -target_start});
  const std::int64_t end =
      std::min({count, source_side - source_start, target_side - target_start});
  if (begin >= end) return {};
  return {static_cast<int>(begin), static_cast<int>(end)};
}

// Copies blue, green and red of `count` pixels that lie `step` bytes apart.
void CopyColours(std::uint8_t* target, int target_step, const std::uint8_t* source, int source_step,
                 int count) {
  for (int i = 0; i < count; ++i, target += target_step, source += source_step) {
    target[kBlue] = source[kBlue];
    target[kGreen] = source[kGreen];
    target[kRed] = source[kRed];
  }
}

int RoundToEven(double value) { return static_cast<int>(std::nearbyint(value)); }

// Where a target position falls between two source positions.
struct Between {
  int first;
  int second;
  double fraction;  // from the first to the second
};

Between SourceOf(int target, double scale, int source_side) {
  const double position = target * scale;
  const int first = static_cast<int>(std::floor(position));
  // A side of one pixel has no second one; its fraction is 0 then.
  return {first, std::min(first + 1, source_side - 1), position - first};
}

std::uint8_t Blend(int low, int high, double fraction) {
  return static_cast<std::uint8_t>(
      std::clamp(RoundToEven((1 - fraction) * low + fraction * high), 0, 255));
}

}  // namespace

bool cDIBSection::Create(int width, int height) {
  ClearUp();
  if (width < 1 || width > kMaxSide || height < 1 || height > kMaxSide) return false;
  const std::size_t row_bytes = (static_cast<std::size_t>(width) * kBytes + 3) & ~std::size_t{3};
  try {
    bits_.resize(row_bytes * height);
  } catch (const std::bad_alloc&) {
    return false;
  } catch (const std::length_error&) {  // more than an address space of 32 bits can hold
    return false;
  }
  width_ = width;
  height_ = height;
  return true;
}

void cDIBSection::CreateFromPicture(const PixelView& picture) {
  if (Create(picture.width, picture.height)) LoadPictureBlt(picture);
}

int cDIBSection::BytesPerScanLine() const { return (width_ * kBytes + 3) & ~3; }

const std::uint8_t* cDIBSection::StoredPixel(int x, int stored_row) const {
  return bits_.data() + static_cast<std::size_t>(stored_row) * BytesPerScanLine() +
         static_cast<std::size_t>(x) * kBytes;
}

std::uint8_t* cDIBSection::StoredPixel(int x, int stored_row) {
  return bits_.data() + static_cast<std::size_t>(stored_row) * BytesPerScanLine() +
         static_cast<std::size_t>(x) * kBytes;
}

void cDIBSection::LoadPictureBlt(const PixelView& source, int x, int y, int width, int height) {
  const Part columns = CommonPart(width < 0 ? width_ : width, x, source.width, 0, width_);
  const Part rows = CommonPart(height < 0 ? height_ : height, y, source.height, 0, height_);
  if (columns.begin == columns.end) return;
  for (int row = rows.begin; row < rows.end; ++row) {
    CopyColours(StoredPixel(columns.begin, height_ - 1 - row), kBytes,
                source.at(x + columns.begin, y + row), kBytesPerPixel, columns.end - columns.begin);
  }
}

void cDIBSection::PaintPicture(MutablePixelView target, int x, int y, int width, int height,
                               int source_x, int source_y) const {
  const Part columns = CommonPart(width < 0 ? width_ : width, source_x, width_, x, target.width);
  const Part rows = CommonPart(height < 0 ? height_ : height, source_y, height_, y, target.height);
  if (columns.begin == columns.end) return;
  for (int row = rows.begin; row < rows.end; ++row) {
    CopyColours(target.at(x + columns.begin, y + row), kBytesPerPixel,
                StoredPixel(source_x + columns.begin, height_ - 1 - (source_y + row)), kBytes,
                columns.end - columns.begin);
  }
}

void cDIBSection::RandomiseBits(bool grey, Clock& clock) {
  std::mt19937 generator(static_cast<std::uint32_t>(clock.Nanos()));
  const auto next = [&generator] {
    constexpr double kValues = 4294967296.0;  // of the generator, 0 to 2^32 - 1
    return static_cast<std::uint8_t>(RoundToEven(generator() / kValues * 255));
  };
  if (grey) {
    for (int row = 0; row < height_; ++row) {
      for (int x = 0; x < width_; ++x) std::memset(StoredPixel(x, row), next(), kBytes);
    }
    return;
  }
  for (int x = 0; x < width_; ++x) {
    for (int row = 0; row < height_; ++row) {
      std::uint8_t* pixel = StoredPixel(x, row);
      pixel[kBlue] = 0;
      pixel[kGreen] = next();
      pixel[kRed] = next();
    }
  }
}

void cDIBSection::ClearUp() {
  width_ = 0;
  height_ = 0;
  std::vector<std::uint8_t>().swap(bits_);
}

std::unique_ptr<cDIBSection> cDIBSection::Resample(int new_height, int new_width) const {
  auto resampled = std::make_unique<cDIBSection>();
  if (bits_.empty() || !resampled->Create(new_width, new_height)) return nullptr;
  if (new_width == width_ && new_height == height_) {
    std::copy(bits_.begin(), bits_.end(), resampled->bits_.begin());
    return resampled;
  }
  const double x_scale = static_cast<double>(width_ - 1) / new_width;
  const double y_scale = static_cast<double>(height_ - 1) / new_height;
  for (int y = 0; y < new_height; ++y) {
    const Between rows = SourceOf(y, y_scale, height_);
    for (int x = 0; x < new_width; ++x) {
      const Between columns = SourceOf(x, x_scale, width_);
      const std::uint8_t* low_left = StoredPixel(columns.first, rows.first);
      const std::uint8_t* low_right = StoredPixel(columns.second, rows.first);
      const std::uint8_t* high_left = StoredPixel(columns.first, rows.second);
      const std::uint8_t* high_right = StoredPixel(columns.second, rows.second);
      std::uint8_t* target = resampled->StoredPixel(x, y);
      for (const int channel : {kBlue, kGreen, kRed}) {
        // Rounded after the vertical blend and again after the horizontal one.
        const int left = Blend(low_left[channel], high_left[channel], rows.fraction);
        const int right = Blend(low_right[channel], high_right[channel], rows.fraction);
        target[channel] = Blend(left, right, columns.fraction);
      }
    }
  }
  return resampled;
}

bool cDIBSection::CopyToClipboard(bool as_dib, Clipboard& clipboard, Dialogs& dialogs,
                                  const std::string& title) const {
  if (as_dib) {
    dialogs.Tell({title,
                  "I don't know how to put a DIB on the clipboard! Copy as bitmap instead!!!",
                  Icon::kNone});
    return false;
  }
  const std::shared_ptr<PixelArray> bitmap = TryMakePixels(width_, height_);
  if (!bitmap) return false;
  PaintPicture(bitmap->mutable_view());
  return clipboard.SetPicture(bitmap->view());
}

}  // namespace tarnwell
