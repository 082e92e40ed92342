#include "engine/final_rotation.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

#include "engine/pass.h"
#include "imaging/pixel_buffer.h"
#include "imaging/pixel_square.h"

namespace tarnwell {
namespace {

bool IsQuarter(Turn turn) { return turn == Turn::kAnticlockwise || turn == Turn::kClockwise; }

// A pixel with its unused channel 0.
std::uint32_t Colours(const std::uint8_t* pixel) {
  static_assert(std::endian::native == std::endian::little);
  std::uint32_t bytes;
  std::memcpy(&bytes, pixel, kBytesPerPixel);
  return bytes & 0x00FFFFFF;
}

// Rows of a quarter turn's source that are worked on at once: they fill a cache line of the target,
// which is then written from end to end and never touched again.
constexpr int kBand = 16;

// Rows of a quarter turn's target that are worked on at once. One band over all rows would touch
// every page of the target's memory, and the first one would wait for the system to provide them.
constexpr int kTargetRows = 512;

// Row i of a quarter turn's target takes source column i, or counted from the right; its column j
// takes source row j, or counted from below.
struct Quarter {
  PixelView source;
  MutablePixelView target;
  bool rows_from_right;
  bool columns_from_below;

  // Target columns first_column to first_column + kBand - 1, as far as there are that many, of what
  // comes from the source columns first_x to end_x - 1.
  void TurnBand(int first_column, int first_x, int end_x) const {
    const std::ptrdiff_t step =
        static_cast<std::ptrdiff_t>(source.stride()) * (columns_from_below ? -1 : 1);
    const int first_row = columns_from_below ? source.height - 1 - first_column : first_column;
    const std::uint8_t* from = source.at(0, first_row);
    int x = first_x;
    if (target.width - first_column >= kBand) {
      for (; x + 4 <= end_x; x += 4) TurnFourColumns(from, step, x, first_column);
    }
    const int columns = std::min(kBand, target.width - first_column);
    for (; x < end_x; ++x) {
      std::uint8_t* to = target.at(first_column, TargetRow(x));
      for (int i = 0; i < columns; ++i, to += kBytesPerPixel) {
        const std::uint32_t pixel = Colours(from + i * step + std::ptrdiff_t{x} * kBytesPerPixel);
        std::memcpy(to, &pixel, kBytesPerPixel);
      }
    }
  }

 private:
  int TargetRow(int x) const { return rows_from_right ? source.width - 1 - x : x; }

  void TurnFourColumns(const std::uint8_t* from, std::ptrdiff_t step, int x,
                       int first_column) const {
    PixelSquare squares[4];
    for (int i = 0; i < 4; ++i) {
      squares[i] = LoadColumns(from + 4 * i * step + std::ptrdiff_t{x} * kBytesPerPixel, step);
    }
    for (int row = 0; row < 4; ++row) {
      std::uint8_t* to = target.at(first_column, TargetRow(x + row));
      for (int i = 0; i < 4; ++i) {
        StoreFour(squares[i].columns[row] & 0x00FFFFFF, to + 16 * i);
      }
    }
  }
};

void CopyRow(const std::uint8_t* from, int width, bool from_right, std::uint8_t* to) {
  const std::ptrdiff_t step = from_right ? -kBytesPerPixel : kBytesPerPixel;
  if (from_right) from += std::ptrdiff_t{width - 1} * kBytesPerPixel;
  for (int x = 0; x < width; ++x, from += step, to += kBytesPerPixel) {
    const std::uint32_t pixel = Colours(from);
    std::memcpy(to, &pixel, kBytesPerPixel);
  }
}

bool TurnQuarter(const PixelView& pixels, Turn turn, int threads, const GoOn& go_on,
                 MutablePixelView target) {
  const Quarter quarter = {pixels, target, turn == Turn::kAnticlockwise, turn == Turn::kClockwise};
  constexpr int kBandsAtOnce = 8;
  const int bands = (target.width + kBand - 1) / kBand;
  const int parts = (pixels.width + kTargetRows - 1) / kTargetRows * bands;
  return ForEachPart(
      parts, kBandsAtOnce, threads,
      [&](int part) {
        const int first_x = part / bands * kTargetRows;
        quarter.TurnBand(part % bands * kBand, first_x,
                         std::min(first_x + kTargetRows, pixels.width));
      },
      [&](int done) { return go_on(1.0 * done / parts); });
}

bool TurnRows(const PixelView& pixels, Turn turn, int threads, const GoOn& go_on,
              MutablePixelView target) {
  const bool from_below = turn != Turn::kLeftRight;
  const bool from_right = turn != Turn::kUpsideDown;
  return ForEachPart(
      pixels.height, kLinesAtOnce, threads,
      [&](int y) {
        CopyRow(pixels.at(0, from_below ? pixels.height - 1 - y : y), pixels.width, from_right,
                target.at(0, y));
      },
      [&](int done) { return go_on(1.0 * done / pixels.height); });
}

}  // namespace

PictureSize SizeAfter(Turn turn, PictureSize before) {
  return IsQuarter(turn) ? PictureSize{before.height, before.width} : before;
}

bool TurnPixels(const PixelView& pixels, Turn turn, int threads, MutablePixelView turned,
                const GoOn& go_on) {
  const auto turn_all = IsQuarter(turn) ? TurnQuarter : TurnRows;
  return turn_all(pixels, turn, threads, go_on, turned);
}

bool RotateFinalImage(PixelBuffer& buffer, int choice, int threads, const GoOn& go_on) {
  if (choice < 0 || choice >= kTurnCount) return false;
  const PixelView pixels = WorkingPixels(buffer);
  if (pixels.empty()) return false;
  const auto turn = static_cast<Turn>(choice);
  const PictureSize size = SizeAfter(turn, {pixels.width, pixels.height});
  auto turned = TryMakePixels(size.width, size.height);
  if (!turned || !TurnPixels(pixels, turn, threads, turned->mutable_view(), go_on)) return false;
  ReplaceWorkingPixels(buffer, std::move(turned));
  buffer.surfaces.picSource.turned = true;
  return true;
}

}  // namespace tarnwell
