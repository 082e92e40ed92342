#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "engine/neighbor_kernels.h"
#include "engine/noise_rule.h"
#include "imaging/picture_piece.h"

namespace tarnwell {

// Finds the sums of the noise filter by comparing every pixel with every neighbour in its disc,
// many pixels at a time: for small discs, and for limits that are too high for anything else.
class NoiseByNeighbors {
 public:
  // `rule` and `reference` outlive this.
  NoiseByNeighbors(const PixelView& reference, const NoiseRule& rule, int radius,
                   Instructions instructions);

  // Blends the pixels of `piece` in `target`, which hold the reference's colours. Several threads
  // may do so for different pieces. Throws std::bad_alloc when memory does not suffice.
  void Smooth(const PicturePiece& piece, MutablePixelView target) const;

  // Nanoseconds per pixel, roughly.
  static double Cost(int radius, int limit, Instructions instructions);

 private:
  // Per lane of a job.
  struct Centres {
    std::uint16_t limits[kCentres] = {};
    std::int16_t most[kCentres] = {};  // see most_
  };
  template <typename Use>
  void ForEachSlice(int x, int y, std::ptrdiff_t row, Use use) const;
  void Describe(int x, int y, int lanes, Centres& centres) const;
  void BlendMoved(const NeighborJob& job, const Centres& centres, int lanes,
                  std::uint8_t* pixels) const;
  void BlendAll(const NeighborJob& job, const std::vector<std::vector<std::int32_t>>& slices,
                int lanes, std::uint8_t* pixels) const;

  PixelView reference_;
  const NoiseRule& rule_;
  int radius_;
  NeighborKernel kernel_;
  std::vector<int> half_widths_;        // of the disc, for |dy| = 0 to radius
  bool is_small_;                       // whether NarrowSums hold the whole disc
  std::array<std::int16_t, 766> most_;  // by the sum of a pixel's channels
};

}  // namespace tarnwell
