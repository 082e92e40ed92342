#pragma once

#include <cstdint>
#include <vector>

#include "engine/counts_pool.h"
#include "engine/neighbor_kernels.h"
#include "engine/noise_rule.h"
#include "engine/processor.h"
#include "imaging/picture_piece.h"

namespace tarnwell {

// How to add up the colours near a given one, for one limit: which differences (blue, green, red)
// are below it, and what each pixel of such a colour adds.
//
// Colours are looked up in runs along the blue axis. Those at e = |green difference| + |red
// difference| share their factors per blue difference b (one lane each):
//   plain  k if e + |b| < limit, else 0      weighted  k x max(limit - e - |b|, 0)
// with k = b itself (step 0) or a green or red difference of 1 to e (step 1 to e).
class NearColors {
 public:
  // Lanes for blue differences -`reach` to `lanes` - 1 - `reach`; limit - 1 <= reach.
  NearColors(int limit, int reach, int lanes);

  int limit() const { return limit_; }
  int lanes() const { return lanes_; }
  // The plain factors, followed by the weighted ones.
  const std::int16_t* factors(int e, int step) const {
    return &factors_[static_cast<std::size_t>(e * limit_ + step) * 2 * lanes_];
  }

 private:
  int limit_;
  int lanes_;
  std::vector<std::int16_t> factors_;
};

// Where the counts of colours lie: runs of blue, in rows of green, in planes of red, with empty
// cells in between for the differences that lead beyond 0 and 255.
struct ColorCells {
  ColorCells(int reach, int lanes);
  std::int32_t cell(const std::uint8_t* pixel) const {
    return static_cast<std::int32_t>(first + pixel[kRed] * red_step + pixel[kGreen] * green_step +
                                     pixel[kBlue]);
  }
  std::int64_t green_step;
  std::int64_t red_step;
  std::int64_t first;    // the cell of black
  std::int64_t nowhere;  // counts what lies outside the picture; never looked up
  std::int64_t size;
};

// The sums of a pixel over the colours near its own: blue, green, red of the plain sum, then of
// sum of (limit - d) x (R' - R). `run` is the cell `reach` before the pixel's own.
using LookUp16 = void (*)(const std::uint16_t* run, const NearColors& near, const ColorCells& cells,
                          std::int32_t sums[6]);
using LookUp32 = void (*)(const std::uint32_t* run, const NearColors& near, const ColorCells& cells,
                          std::int32_t sums[6]);
struct ColorLookUps {
  LookUp16 narrow;  // for windows of at most 32767 pixels
  LookUp32 wide;
};
ColorLookUps ColorLookUpsFor(Instructions instructions);

// Finds the sums from counts of the colours in the window. Some rows share one window, what their
// discs have in common, which moves along them: each step only adds the pixels that come in at the
// edge and takes away those that leave. What a pixel's disc has beyond the shared window, a thin
// fringe above and below, is compared neighbour by neighbour.
//
// The cost hardly depends on how many neighbours count and grows with the radius instead of its
// square, but also with the square (then the cube) of the limit: for large discs and small limits.
class NoiseByColors {
 public:
  static constexpr int kHighestLimit = 32;

  // Whether limit and radius are within what this can do: its sums are of 32 bits.
  static bool Suits(int radius, int limit);

  // `rule`, whose highest limit is at least 1 and suits, and `reference` outlive this.
  NoiseByColors(const PixelView& reference, const NoiseRule& rule, int radius,
                Instructions instructions);

  // Blends the pixels of `piece` in `target`, which hold the reference's colours. Several threads
  // may do so for different pieces. Throws std::bad_alloc when memory does not suffice.
  void Smooth(const PicturePiece& piece, MutablePixelView target) const;

  // Nanoseconds per pixel, roughly.
  static double Cost(int radius, int limit, Instructions instructions);

 private:
  class Band;
  // The window that a number of rows share, first row 0.
  struct SharedWindow {
    int top = 0;                   // its first row, -radius or below
    std::vector<int> half_widths;  // from that row down
    // Per row that shares it the fringe: columns and rows away from the pixel.
    struct Step {
      int dx;
      int dy;
    };
    std::vector<std::vector<Step>> fringes;
  };
  SharedWindow MakeShared(int rows) const;
  template <typename Count>
  class Rows;
  template <typename Count>
  void SmoothPiece(const PicturePiece& piece, CountsPool<Count>& pool,
                   MutablePixelView target) const;

  PixelView reference_;
  const NoiseRule& rule_;
  int radius_;
  int reach_;
  int lanes_;
  ColorCells cells_;
  ColorLookUps look_ups_;
  NeighborKernel kernel_;
  std::vector<NearColors> near_;       // by limit - 1
  std::vector<SharedWindow> windows_;  // by how many rows share one, less 1
  // One of the two serves: the narrow ones while the pixels of a window fit 15 bits.
  bool narrow_;
  mutable CountsPool<std::uint16_t> narrow_counts_;
  mutable CountsPool<std::uint32_t> wide_counts_;
};

}  // namespace tarnwell
