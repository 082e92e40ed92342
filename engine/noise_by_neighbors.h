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
    float shares[kCentres] = {};
  };
  void FindMoved(const Centres& centres, const NeighborSums& sums, bool (&moved)[kCentres]) const;
  template <typename Use>
  void ForEachSlice(int x, int y, std::ptrdiff_t row, Use use) const;

  PixelView reference_;
  const NoiseRule& rule_;
  int radius_;
  AddNeighbors add_neighbors_;
  bool is_small_;
  std::array<float, 766> shares_;  // 1 / T by the sum of a pixel's channels
  std::vector<int> half_widths_;   // of the disc, for |dy| = 0 to radius
};

}  // namespace tarnwell
