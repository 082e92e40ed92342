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

// The pixels and neighbours of one call. Pixels lie in planes of bytes: blue, green, red, and a
// fourth one that is 255 outside the picture and 0 inside.
struct NeighborJob {
  const std::uint8_t* centres = nullptr;  // of the blue plane; all lanes can be read
  std::ptrdiff_t plane = 0;               // bytes from one plane to the next
  const std::int32_t* offsets = nullptr;  // to the neighbours of every centre
  int count = 0;
  const std::uint16_t* limits = nullptr;  // per lane; a neighbour counts when d is below
  int highest_limit = 0;                  // no lane's is above
  bool at_edge = true;                    // whether the fourth plane must be asked
};

// Adds the neighbours of `job` to `sums`. The best kernel for the limit and the instructions.
using AddNeighbors = void (*)(const NeighborJob& job, NeighborSums& sums);
AddNeighbors NeighborKernelFor(int highest_limit, Instructions instructions);

// Nanoseconds per pixel and neighbour, roughly.
double NeighborCost(int highest_limit, Instructions instructions);

}  // namespace tarnwell
