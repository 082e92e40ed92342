#include "engine/noise_by_neighbors.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "engine/planar_piece.h"

namespace tarnwell {
namespace {

// Up to this radius all neighbours are one slice, and their weighted sums fit 32 bits.
constexpr int kSmallRadius = 50;

}  // namespace

NoiseByNeighbors::NoiseByNeighbors(const PixelView& reference, const NoiseRule& rule, int radius,
                                   Instructions instructions)
    : reference_(reference),
      rule_(rule),
      radius_(radius),
      add_neighbors_(NeighborKernelFor(rule.highest_limit(), instructions)),
      is_small_(radius <= kSmallRadius) {
  for (int sum = 0; sum <= 765; ++sum) {
    const double threshold = rule.threshold(sum);
    shares_[sum] = threshold > 0 ? static_cast<float>(1 / threshold) : 0;
  }
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

// Whether rounding may take a pixel to another value: surely not where no channel is moved by half
// a level. In single precision, whose errors are far smaller than what is kept from the half.
void NoiseByNeighbors::FindMoved(const Centres& centres, const NeighborSums& sums,
                                 bool (&moved)[kCentres]) const {
  float farthest[kCentres] = {};
  for (int channel = 0; channel < 3; ++channel) {
    for (int i = 0; i < kCentres; ++i) {
      const std::int32_t plain = sums.plain[channel][i];
      const auto others = static_cast<std::int32_t>(sums.weighted[channel][i]);
      const std::int32_t weighted = centres.limits[i] * plain - others;
      const float shift =
          std::abs(static_cast<float>(plain) - static_cast<float>(weighted) * centres.shares[i]);
      farthest[i] = std::max(farthest[i], shift);
    }
  }
  const auto most = static_cast<float>(0.49 * rule_.normaliser());
  for (int i = 0; i < kCentres; ++i) moved[i] = farthest[i] >= most;
}

void NoiseByNeighbors::Smooth(const PicturePiece& piece, MutablePixelView target) const {
  const PlanarPiece planes(reference_, piece, radius_);
  const auto slices_at = [&](int x, int y) {
    std::vector<std::vector<std::int32_t>> slices;
    ForEachSlice(x, y, planes.row(), [&](const auto& offsets) { slices.push_back(offsets); });
    return slices;
  };
  // Away from the picture's edges the offsets are always the same.
  std::vector<std::vector<std::int32_t>> inside, at_edge;
  for (int y = piece.top; y < piece.bottom; ++y) {
    for (int x = piece.left; x < piece.right; x += kCentres) {
      const int lanes = std::min(kCentres, piece.right - x);
      Centres centres;
      for (int i = 0; i < lanes; ++i) {
        const int sum = SumOfChannels(reference_.at(x + i, y));
        centres.limits[i] = static_cast<std::uint16_t>(rule_.limit(sum));
        centres.shares[i] = shares_[sum];
      }
      NeighborJob job;
      job.centres = planes.at(x, y);
      job.plane = planes.plane();
      job.limits = centres.limits;
      job.highest_limit = rule_.highest_limit();
      job.at_edge = x < radius_ || x + kCentres + radius_ > reference_.width || y < radius_ ||
                    y + radius_ >= reference_.height;
      if (job.at_edge) {
        at_edge = slices_at(x, y);
      } else if (inside.empty()) {
        inside = slices_at(x, y);
      }

      NoiseSums found[kCentres];
      bool moved[kCentres];
      std::fill_n(moved, kCentres, true);
      for (const auto& offsets : job.at_edge ? at_edge : inside) {
        job.offsets = offsets.data();
        job.count = static_cast<int>(offsets.size());
        NeighborSums sums;
        add_neighbors_(job, sums);
        if (is_small_) FindMoved(centres, sums, moved);
        for (int i = 0; i < lanes; ++i) {
          if (!moved[i]) continue;
          for (int channel = 0; channel < 3; ++channel) {
            const std::int64_t plain = sums.plain[channel][i];
            found[i].plain[channel] += plain;
            found[i].weighted[channel] += centres.limits[i] * plain - sums.weighted[channel][i];
          }
        }
      }
      for (int i = 0; i < lanes; ++i) {
        if (moved[i]) rule_.Blend(found[i], target.at(x + i, y));
      }
    }
  }
}

double NoiseByNeighbors::Cost(int radius, int limit, Instructions instructions) {
  return NeighborCost(limit, instructions) * 3.15 * (radius + 0.5) * (radius + 0.5);
}

}  // namespace tarnwell
