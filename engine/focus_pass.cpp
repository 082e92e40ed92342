#include "engine/focus_pass.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <thread>

#include "engine/rounding.h"
#include "imaging/transpose.h"

namespace tarnwell {
namespace {

// Rows between two looks at how far the part before is.
constexpr int kRowsPerLook = 64;

typedef std::int32_t Numbers __attribute__((vector_size(16)));

// The four bytes of a pixel as numbers.
[[gnu::always_inline]] inline Numbers Load(const std::uint8_t* bytes) {
  if constexpr (std::endian::native == std::endian::little) {
    // Spread with zeros in between; converting four bytes becomes a detour through registers.
    typedef std::uint8_t Bytes __attribute__((vector_size(16)));
    typedef std::uint16_t Pairs __attribute__((vector_size(16)));
    Bytes four = {};
    std::memcpy(&four, bytes, kBytesPerPixel);
    const auto pairs = reinterpret_cast<Pairs>(__builtin_shufflevector(
        four, Bytes{}, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23));
    return reinterpret_cast<Numbers>(
        __builtin_shufflevector(pairs, Pairs{}, 0, 8, 1, 9, 2, 10, 3, 11));
  }
  return Numbers{bytes[0], bytes[1], bytes[2], bytes[3]};
}

// What all pixels of a pass have in common.
struct Common {
  double amount;
  const ToneTable* table;
  const AdjustmentSettings* settings;
};

// Sharpens the pixel at `bytes`, adjusts its tones, and gives how much its channels have changed.
// `neighbors` are the sums over its window without itself, `smooth` the pixel that sharpening
// starts from.
[[gnu::always_inline]] inline Numbers AdjustOne(const Common& common, Numbers before,
                                                Numbers neighbors, double divisor,
                                                const std::uint8_t* smooth, std::uint8_t* bytes) {
  typedef double Real __attribute__((vector_size(32)));
  const Real mean = __builtin_convertvector(neighbors, Real) / divisor;
  const Numbers start = Load(smooth);
  const Real change = (__builtin_convertvector(start, Real) - mean) * common.amount;
  // RoundHalfToEven, four at a time.
  const Real rounded = (change + kNoFraction) - kNoFraction;
  const Numbers sharp = start + __builtin_convertvector(rounded, Numbers);

  const int starting_sum = before[kBlue] + before[kGreen] + before[kRed];
  if (common.table && ((sharp[kBlue] | sharp[kGreen] | sharp[kRed]) & ~255) == 0) {
    common.table->AdjustPixel(sharp[kBlue], sharp[kGreen], sharp[kRed], starting_sum, bytes);
  } else {
    PixelValues pixel = {static_cast<std::int16_t>(sharp[kBlue]),
                         static_cast<std::int16_t>(sharp[kGreen]),
                         static_cast<std::int16_t>(sharp[kRed])};
    AdjustTones(pixel, starting_sum, *common.settings);
    StoreClamped(pixel, bytes);
  }
  return Load(bytes) - before;
}

}  // namespace

bool FocusPass::Suits(const FocusSettings& settings) {
  // Sums over the window fit 32 bits, and no sharpened channel leaves 16.
  return settings.step == 1 && settings.distance <= 1000 && std::abs(settings.amount) <= 100;
}

FocusPass::FocusPass(const PixelView& start, const PixelView& smooth, MutablePixelView out,
                     const AdjustmentSettings& settings, const ToneTable* table,
                     Instructions instructions)
    : start_(start),
      smooth_(smooth),
      out_(out),
      settings_(settings),
      table_(table),
      in_vectors_(SuitFocusVectors(settings, instructions)),
      width_(start.width),
      height_(start.height),
      distance_(settings.focus->distance),
      lag_(std::min(2 * distance_ + 2, height_)),
      pixels_(height_, width_),
      nothing_(static_cast<std::size_t>(height_) * kBytesPerPixel),
      row_sums_(height_),
      rows_done_(part_count()) {
  if (smooth.data != start.data) smooth_pixels_ = PixelArray(height_, width_);
}

PicturePiece FocusPass::Piece(int strip, int band) const {
  return {strip * kStripWidth, band * kBandHeight, std::min((strip + 1) * kStripWidth, width_),
          std::min((band + 1) * kBandHeight, height_)};
}

void FocusPass::Read(int strip) {
  const bool smoothed = !smooth_pixels_.view().empty();
  for (int band = 0; band < band_count(); ++band) {
    const PicturePiece piece = Piece(strip, band);
    Transpose(start_, piece, pixels_.mutable_view());
    if (smoothed) Transpose(smooth_, piece, smooth_pixels_.mutable_view());
  }
  if (strip == 0) SumFirstRows();
}

// The window of column 0 before its right end comes in.
void FocusPass::SumFirstRows() {
  for (int y = 0; y < height_; ++y) {
    const std::uint8_t* pixel = start_.at(0, y);
    for (int x = 0; x < std::min(distance_, width_); ++x, pixel += kBytesPerPixel) {
      for (int i = 0; i < 4; ++i) row_sums_[y].sum[i] += pixel[i];
    }
  }
}

void FocusPass::Write(int band) {
  for (int strip = 0; strip < strip_count(); ++strip) {
    const PicturePiece piece = Piece(strip, band);
    Transpose(pixels_.view(), {piece.top, piece.left, piece.bottom, piece.right}, out_);
  }
}

FocusPass::Column FocusPass::Begin(int x) {
  Column column;
  column.pixels = at(x, 0);
  const int right = x + distance_;
  const int left = x - 1 - distance_;
  column.entering = right < width_ ? at(right, 0) : nothing_.data();
  column.leaving = left >= 0 ? at(left, 0) : nothing_.data();
  column.smooth = smooth_pixels_.view().empty() ? column.pixels : smooth_pixels_.view().at(0, x);
  column.columns = std::min(right, width_ - 1) - std::max(x - distance_, 0) + 1;
  for (int y = 0; y < std::min(distance_, height_); ++y) EnterRow(column, y);
  return column;
}

// Moves the sum of row y from the window of the column before to that of `column`, and adds it.
inline void FocusPass::EnterRow(Column& column, int y) {
  Sum& row = row_sums_[y].sum;
  row += Load(column.entering + y * kBytesPerPixel) - Load(column.leaving + y * kBytesPerPixel);
  column.sum += row;
}

inline void FocusPass::LeaveRow(Column& column, int y) { column.sum -= row_sums_[y].sum; }

double FocusPass::Divisor(const Column& column, int y) const {
  const int rows = std::min(y + distance_, height_ - 1) - std::max(y - distance_, 0) + 1;
  const int count = rows * column.columns - 1;
  return count == 0 ? 1e-14 : static_cast<double>(count);
}

void FocusPass::AdjustPixel(Column& column, int y, double divisor) {
  std::uint8_t* bytes = column.pixels + y * kBytesPerPixel;
  const Sum before = Load(bytes);
  const Common common = {settings_.focus->amount, table_, &settings_};
  const Sum change = AdjustOne(common, before, column.sum - before, divisor,
                               column.smooth + y * kBytesPerPixel, bytes);
  // From here on the pixel counts as it is now.
  row_sums_[y].sum += change;
  column.sum += change;
}

// Columns that can be worked on in vectors: their windows are inside the picture from row `top` to
// `bottom` - 1, less the lag of the columns before them.
void FocusPass::AdjustInside(Column* columns, int top, int bottom) {
  FocusPlace places[kColumnsAtOnce];
  for (int i = 0; i < kColumnsAtOnce; ++i) {
    const Column& column = columns[i];
    const std::ptrdiff_t y = top - i * lag_;
    const std::ptrdiff_t byte = y * kBytesPerPixel, ahead = byte + distance_ * kBytesPerPixel;
    FocusPlace& place = places[i];
    place = {column.pixels + byte,
             column.smooth + byte,
             column.entering + ahead,
             column.leaving + ahead,
             reinterpret_cast<std::int32_t*>(row_sums_.data() + y),
             Divisor(column, static_cast<int>(y)),
             {}};
    std::memcpy(place.sum, &column.sum, sizeof(place.sum));
  }
  AdjustInFocusVectors(settings_, places, bottom - top);
  for (int i = 0; i < kColumnsAtOnce; ++i) {
    std::memcpy(&columns[i].sum, places[i].sum, sizeof(places[i].sum));
  }
}

// Takes each column from row `top` to `bottom` - 1, less the lag of the columns before it.
void FocusPass::AdjustSteps(Column* columns, int first_column, int count, int top, int bottom) {
  int inside = bottom, below = bottom;
  if (in_vectors_ && count == kColumnsAtOnce) {
    // From where to where every column's window is inside the picture.
    inside = std::clamp(distance_ + 1 + (count - 1) * lag_, top, bottom);
    below = std::clamp(height_ - distance_, inside, bottom);
  }
  AdjustAnywhere(columns, first_column, count, top, inside);
  if (inside < below) AdjustInside(columns, inside, below);
  AdjustAnywhere(columns, first_column, count, below, bottom);
}

void FocusPass::AdjustAnywhere(Column* columns, int first_column, int count, int top, int bottom) {
  for (int step = top; step < bottom; ++step) {
    for (int i = 0; i < count; ++i) {
      const int y = step - i * lag_;
      if (y < 0 || y >= height_) continue;
      if (y == 0) columns[i] = Begin(first_column + i);
      if (y + distance_ < height_) EnterRow(columns[i], y + distance_);
      if (y - 1 - distance_ >= 0) LeaveRow(columns[i], y - 1 - distance_);
      AdjustPixel(columns[i], y, Divisor(columns[i], y));
    }
  }
}

bool FocusPass::WaitFor(int part, int rows) const {
  while (rows_done_[part].load(std::memory_order_acquire) < rows) {
    if (stopped_) return false;
    std::this_thread::yield();
  }
  return true;
}

void FocusPass::Adjust(int part) {
  const int first = part * kColumnsAtOnce;
  const int count = std::min(kColumnsAtOnce, width_ - first);
  const int last = count - 1;
  Column columns[kColumnsAtOnce];
  const int steps = height_ + last * lag_;
  for (int top = 0; top < steps; top += kRowsPerLook) {
    const int bottom = std::min(top + kRowsPerLook, steps);
    // The first column must find the rows of its window left by the column before.
    if (part > 0 && !WaitFor(part - 1, std::min(bottom - 1 + lag_, height_))) return;
    AdjustSteps(columns, first, count, top, bottom);
    const int done = std::clamp(bottom - last * lag_, 0, height_);
    rows_done_[part].store(done, std::memory_order_release);
  }
}

}  // namespace tarnwell
