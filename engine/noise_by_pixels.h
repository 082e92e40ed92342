#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/noise_rule.h"
#include "engine/planar_piece.h"
#include "engine/processor.h"
#include "imaging/picture_piece.h"

namespace tarnwell {

// The neighbours of one pixel: runs of them side by side, in the planes of a PlanarPiece.
struct NeighborRuns {
  struct Run {
    const std::int8_t* first;  // in the blue plane; 31 more than `count` can be read
    int count;
  };
  std::vector<Run> runs;
  std::ptrdiff_t plane = 0;  // bytes from one plane to the next
};

// Finds the sums of the noise filter for single pixels of a piece, comparing each with every
// neighbour in its disc, many neighbours at a time: for the few pixels of a piece that need it.
class NoiseByPixels {
 public:
  // The highest limit that this can do.
  static constexpr int kHighestLimit = 16;

  // `rule`, whose highest limit suits, and `reference` outlive this.
  NoiseByPixels(const PixelView& reference, const NoiseRule& rule, int radius,
                Instructions instructions);

  // The planes that the neighbours of a piece are read from. Throws std::bad_alloc.
  PlanarPiece Planes(const PicturePiece& piece) const {
    return PlanarPiece(reference_, piece, radius_);
  }

  // Blends pixel (x, y) of `target`, which holds the reference's colours.
  void Smooth(const PlanarPiece& planes, int x, int y, MutablePixelView target) const;

  // Nanoseconds per pixel, roughly.
  static double Cost(int radius, Instructions instructions);

  // The sums of a pixel with the levels `centre` in the planes; `weighted` is the sum of
  // (limit - d) x (R' - R).
  using AddRuns = NoiseSums (*)(const NeighborRuns& neighbors, const std::int8_t centre[3],
                                int limit);

 private:
  PixelView reference_;
  const NoiseRule& rule_;
  int radius_;
  AddRuns add_runs_;
  std::vector<int> half_widths_;  // of the disc, for |dy| = 0 to radius
};

}  // namespace tarnwell
