#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "engine/counts_pool.h"
#include "engine/noise_rule.h"
#include "engine/processor.h"
#include "imaging/picture_piece.h"

namespace tarnwell {

// A pixel's neighbours can shift a channel up by no more than what those with a higher level add up
// to, and down by no more than those with a lower one. Neighbours are counted here by their level
// in one channel and the sum of the other two: with a the difference of the one and m that of the
// sum, d is at least a + |m|, and so such a neighbour adds at most a x (1 - (a + |m|) / T).
//
// Levels of other channels mostly change together, which makes this bound sharp: with small
// thresholds, under which few neighbours count, it shows for most pixels of a photo that rounding
// takes them back to what they were, at a fraction of the price of their sums.
//
// One window serves all rows of a piece, the union of their discs: more neighbours only loosen the
// bound.
class QuietPixels {
 public:
  static constexpr int kHighestLimit = 10;

  // Whether a rule of `limit` can be expected to leave most pixels, and the numbers fit.
  static bool Suits(int radius, int limit);

  // `rule`, whose highest limit is at least 2 and suits, and `reference` outlive this.
  QuietPixels(const PixelView& reference, const NoiseRule& rule, int radius,
              Instructions instructions);

  struct Place {
    int x;
    int y;
  };
  // Those pixels of `piece` that may change; all others surely stay. Several threads may ask for
  // different pieces. Throws std::bad_alloc when memory does not suffice.
  std::vector<Place> FindLoud(const PicturePiece& piece) const;

  // Nanoseconds per pixel, roughly, for high pieces.
  static double Cost(int radius, Instructions instructions);

  // What a neighbour adds at most, times kScale and rounded up, for one threshold.
  static constexpr int kScale = 1024;
  struct Bounds {
    int rows = 0;                       // differences a = 1 to `rows` count
    std::vector<std::int16_t> factors;  // by a - 1: by m + reach, in whole vectors
  };
  // The counts around a pixel, by channel: the cell of its own level and `reach` below its sum of
  // the others.
  template <typename Count>
  using Centres = std::array<const Count*, 3>;
  struct Shape {
    int reach = 0;           // the highest |m| that counts
    int lanes = 0;           // per a, a whole number of vectors
    std::int64_t step = 0;   // from one level to the next
    std::int64_t first = 0;  // the cell of level 0 and sum 0
    std::int64_t size = 0;   // of one channel
  };
  // Whether a channel may rise or fall by more than `most` / kScale.
  template <typename Count>
  using MayMove = bool (*)(const Centres<Count>& centres, const Bounds& bounds, const Shape& shape,
                           std::int32_t most);

 private:
  template <typename Count>
  class Window;
  template <typename Count>
  std::vector<Place> Find(const PicturePiece& piece, CountsPool<Count>& pool,
                          MayMove<Count> may_move) const;

  PixelView reference_;
  int radius_;
  std::int32_t most_;  // what moves no channel, times kScale
  Shape shape_;
  std::vector<Bounds> bounds_;                   // the first one for those that never change
  std::array<std::uint8_t, 766> bounds_of_sum_;  // by the sum of a pixel's channels
  MayMove<std::uint16_t> narrow_may_move_;
  MayMove<std::uint32_t> wide_may_move_;
  mutable CountsPool<std::uint16_t> narrow_counts_;
  mutable CountsPool<std::uint32_t> wide_counts_;
};

}  // namespace tarnwell
