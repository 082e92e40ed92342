#pragma once

#include <cstddef>
#include <cstdint>

#include "engine/processor.h"

namespace tarnwell {

// Neighbours are compared for this many pixels of a row at once, one per lane.
inline constexpr int kCentres = 32;

// Per lane what the neighbours add up to; blue, green, red.
struct NeighborSums {
  std::int32_t plain[3][kCentres] = {};     // sum of (R' - R); holds at least 2^23 neighbours
  std::int64_t weighted[3][kCentres] = {};  // sum of (limit - d) x (R' - R)
};

// The same for as many neighbours as surely fit.
struct NarrowSums {
  std::int16_t plain[3][kCentres];
  std::int16_t weighted[3][kCentres];
};

// The pixels and neighbours of one call, in the planes of a PlanarPiece.
struct NeighborJob {
  const std::int8_t* centres = nullptr;   // of the blue plane; all lanes can be read
  std::ptrdiff_t plane = 0;               // bytes from one plane to the next
  const std::int32_t* offsets = nullptr;  // to the neighbours of every centre
  int count = 0;
  const std::uint16_t* limits = nullptr;  // per lane; a neighbour counts when d is below
  bool at_edge = true;                    // whether the fourth plane must be asked
};

// The best way of adding neighbours for a limit and the instructions.
class NeighborKernel {
 public:
  NeighborKernel(int highest_limit, Instructions instructions);

  // Adds the neighbours of `job` to `sums`.
  void Add(const NeighborJob& job, NeighborSums& sums) const;

  // How many neighbours a job for SumNarrowly may have; 0 when the limit is too high for it.
  int narrow_count() const { return narrow_count_; }
  void SumNarrowly(const NeighborJob& job, NarrowSums& sums) const { sum_narrowly_(job, sums); }

 private:
  int narrow_count_;
  void (*sum_narrowly_)(const NeighborJob& job, NarrowSums& sums);
  void (*add_widely_)(const NeighborJob& job, NeighborSums& sums);
};

// Nanoseconds per pixel and neighbour, roughly.
double NeighborCost(int highest_limit, Instructions instructions);

}  // namespace tarnwell
