#include "engine/noise_by_neighbors.h"

#include <algorithm>
#include <cstdlib>

#include "engine/planar_piece.h"

namespace tarnwell {

NoiseByNeighbors::NoiseByNeighbors(const PixelView& reference, const NoiseRule& rule, int radius,
                                   Instructions instructions)
    : reference_(reference),
      rule_(rule),
      radius_(radius),
      add_neighbors_(NeighborKernelFor(rule.highest_limit(), instructions)) {
  for (int dy = 0; dy <= radius; ++dy) half_widths_.push_back(DiscHalfWidth(radius, dy));
}

// Calls `use(offsets)` with the disc around (x, y) in slices, without its centre and as far as any
// of the lanes has its neighbour inside the picture.
template <typename Use>
void NoiseByNeighbors::ForEachSlice(int x, int y, std::ptrdiff_t row, Use use) const {
  constexpr std::size_t kSlice = 1 << 16;
  std::vector<std::int32_t> offsets;
  const int top = std::max(y - radius_, 0), bottom = std::min(y + radius_, reference_.height - 1);
  for (int neighbor_y = top; neighbor_y <= bottom; ++neighbor_y) {
    const int dy = neighbor_y - y;
    const int half_width = half_widths_[std::abs(dy)];
    const int first = std::max(-half_width, 1 - kCentres - x);
    const int last = std::min(half_width, reference_.width - 1 - x);
    for (int dx = first; dx <= last; ++dx) {
      if (dx != 0 || dy != 0) offsets.push_back(static_cast<std::int32_t>(dy * row + dx));
    }
    if (offsets.size() < kSlice) continue;
    use(offsets);
    offsets.clear();
  }
  use(offsets);
}

void NoiseByNeighbors::Smooth(const PicturePiece& piece, MutablePixelView target) const {
  const PlanarPiece planes(reference_, piece, radius_);
  // Away from the picture's edges the offsets are always the same.
  std::vector<std::vector<std::int32_t>> inside;
  for (int y = piece.top; y < piece.bottom; ++y) {
    for (int x = piece.left; x < piece.right; x += kCentres) {
      const int lanes = std::min(kCentres, piece.right - x);
      std::uint16_t limits[kCentres] = {};
      for (int i = 0; i < lanes; ++i) {
        limits[i] = static_cast<std::uint16_t>(rule_.limit(SumOfChannels(reference_.at(x + i, y))));
      }
      NeighborJob job;
      job.centres = planes.at(x, y);
      job.plane = planes.plane();
      job.limits = limits;
      job.highest_limit = rule_.highest_limit();
      job.at_edge = x < radius_ || x + kCentres + radius_ > reference_.width || y < radius_ ||
                    y + radius_ >= reference_.height;

      NoiseSums found[kCentres];
      const auto add = [&](const std::vector<std::int32_t>& offsets) {
        job.offsets = offsets.data();
        job.count = static_cast<int>(offsets.size());
        NeighborSums sums;
        add_neighbors_(job, sums);
        for (int channel = 0; channel < 3; ++channel) {
          for (int i = 0; i < kCentres; ++i) {
            const std::int64_t plain = sums.plain[channel][i];
            found[i].plain[channel] += plain;
            found[i].weighted[channel] += limits[i] * plain - sums.weighted[channel][i];
          }
        }
      };
      if (job.at_edge) {
        ForEachSlice(x, y, planes.row(), add);
      } else {
        if (inside.empty()) {
          ForEachSlice(x, y, planes.row(), [&](const auto& offsets) { inside.push_back(offsets); });
        }
        for (const auto& offsets : inside) add(offsets);
      }
      for (int i = 0; i < lanes; ++i) rule_.Blend(found[i], target.at(x + i, y));
    }
  }
}

double NoiseByNeighbors::Cost(int radius, int limit, Instructions instructions) {
  return NeighborCost(limit, instructions) * 3.15 * (radius + 0.5) * (radius + 0.5);
}

}  // namespace tarnwell
