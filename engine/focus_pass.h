#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <vector>

#include "engine/focus_vectors.h"
#include "engine/pixel_adjustments.h"
#include "engine/processor.h"
#include "imaging/pixel_array.h"

namespace tarnwell {

// Focus, tones and clamp over a whole picture, as FocusColumn does them column by column, at a cost
// that does not grow with the distance and on several threads.
//
// For every row a running sum holds the channels of the columns x - distance to x + distance, as
// they are when column x is corrected: its left part corrected already. Going down a column, the
// sum over the neighbours is that of the row sums in the window. A row sum can serve the next
// column once the window of this one has left its row, so columns are worked on in a slanted wave:
// each some rows behind the one to its left, a few of them at a time for the processor's sake,
// those of different threads waiting for each other.
class FocusPass {
 public:
  static constexpr int kColumnsAtOnce = kFocusColumns;

  // Whether `settings` are within what this can do; FocusColumn can do all.
  static bool Suits(const FocusSettings& settings);

  // `start` is the picture before any step, `smooth` what the noise filter made of it, or `start`
  // itself; the result goes to `out`, which may be either. `table` may be null. All outlive this.
  // `settings` have focus, and it suits. Throws std::bad_alloc.
  FocusPass(const PixelView& start, const PixelView& smooth, MutablePixelView out,
            const AdjustmentSettings& settings, const ToneTable* table,
            Instructions instructions = BestInstructions());

  // Three stages, each on any number of threads, each after the one before: read the pictures,
  // strip by strip of columns; adjust, part by part; write band by band of rows. So each step
  // touches little new memory, of which the system may take its time to give.
  static constexpr int kStripWidth = 256;
  int strip_count() const { return (width_ + kStripWidth - 1) / kStripWidth; }
  void Read(int strip);
  static constexpr int kBandHeight = 128;
  int band_count() const { return (height_ + kBandHeight - 1) / kBandHeight; }
  void Write(int band);

  // Parts must be begun in order, as each waits for the one before it.
  int part_count() const { return (width_ + kColumnsAtOnce - 1) / kColumnsAtOnce; }
  void Adjust(int part);
  // Ends the waiting for a part that may never be begun.
  void Stop() { stopped_ = true; }

 private:
  // Blue, green, red, and the unused byte, which is summed for the sake of whole vectors.
  typedef std::int32_t Sum __attribute__((vector_size(16)));
  struct RowSum {
    Sum sum;
  };
  // A column of the picture that is being worked on.
  struct Column {
    std::uint8_t* pixels = nullptr;
    const std::uint8_t* entering = nullptr;  // the columns that come into the window and leave it
    const std::uint8_t* leaving = nullptr;
    const std::uint8_t* smooth = nullptr;
    int columns = 0;  // in the window, its own included
    Sum sum = {};     // over the window
  };
  Column Begin(int x);
  void EnterRow(Column& column, int y);
  void LeaveRow(Column& column, int y);
  double Divisor(const Column& column, int y) const;
  void AdjustPixel(Column& column, int y, double divisor);
  void AdjustInside(Column* columns, int top, int bottom);
  void AdjustAnywhere(Column* columns, int first_column, int count, int top, int bottom);
  void AdjustSteps(Column* columns, int first_column, int count, int top, int bottom);
  bool WaitFor(int part, int rows) const;

  std::uint8_t* at(int x, int y) { return pixels_.mutable_view().at(y, x); }
  PicturePiece Piece(int strip, int band) const;
  void SumFirstRows();

  PixelView start_;
  PixelView smooth_;
  MutablePixelView out_;
  const AdjustmentSettings& settings_;
  const ToneTable* table_;
  bool in_vectors_;
  int width_;
  int height_;
  int distance_;
  int lag_;                            // rows from one column to the next
  PixelArray pixels_;                  // the picture column by column
  PixelArray smooth_pixels_;           // likewise; empty: the same as pixels_
  std::vector<std::uint8_t> nothing_;  // a column of zeros, for those outside the picture
  std::vector<RowSum> row_sums_;
  std::vector<std::atomic<int>> rows_done_;  // of the last column of each part
  std::atomic<bool> stopped_ = false;
};

}  // namespace tarnwell
