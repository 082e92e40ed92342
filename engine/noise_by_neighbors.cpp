#include "engine/noise_by_neighbors.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "engine/planar_piece.h"

namespace tarnwell {
NoiseByNeighbors::NoiseByNeighbors(const PixelView& reference, const NoiseRule& rule, int radius,
                                   Instructions instructions)
    : reference_(reference),
      rule_(rule),
      radius_(radius),
      kernel_(rule.highest_limit(), instructions) {
  int area = 0;
  for (int dy = 0; dy <= radius; ++dy) {
    half_widths_.push_back(DiscHalfWidth(radius, dy));
    area += (dy == 0 ? 1 : 2) * (2 * half_widths_.back() + 1);
  }
  is_small_ = area <= kernel_.narrow_count();
  for (int sum = 0; sum <= 765; ++sum) {
    // A little less than half a level, for the errors of the formula in double.
    const double most = 0.499 * rule.threshold(sum) * rule.normaliser();
    most_[sum] = static_cast<std::int16_t>(std::clamp(most, 0.0, 32767.0));
  }
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

void NoiseByNeighbors::Describe(int x, int y, int lanes, Centres& centres) const {
  for (int i = 0; i < lanes; ++i) {
    const int sum = SumOfChannels(reference_.at(x + i, y));
    centres.limits[i] = static_cast<std::uint16_t>(rule_.limit(sum));
    centres.most[i] = most_[sum];
  }
}

// Only the few pixels that rounding may take to another value. With W the weighted sum of the
// kernel, a channel moves by (W - (limit - T) x A) / (T x N). The limit is T rounded up, so that
// the numerator lies between W and W - A.
void NoiseByNeighbors::BlendMoved(const NeighborJob& job, const Centres& centres, int lanes,
                                  std::uint8_t* pixels) const {
  NarrowSums sums;
  kernel_.SumNarrowly(job, sums);
  std::int16_t farthest[kCentres] = {};
  for (int channel = 0; channel < 3; ++channel) {
    for (int i = 0; i < kCentres; ++i) {
      const std::int16_t weighted = sums.weighted[channel][i];
      const auto rest = static_cast<std::int16_t>(weighted - sums.plain[channel][i]);
      const auto high = std::max(weighted, rest), low = std::min(weighted, rest);
      farthest[i] = std::max({farthest[i], high, static_cast<std::int16_t>(-low)});
    }
  }
  std::uint16_t moved[kCentres], any = 0;
  for (int i = 0; i < kCentres; ++i) {
    moved[i] = farthest[i] >= centres.most[i];
    any = static_cast<std::uint16_t>(any | moved[i]);
  }
  if (!any) return;
  for (int i = 0; i < lanes; ++i) {
    if (!moved[i]) continue;
    NoiseSums found;
    for (int channel = 0; channel < 3; ++channel) {
      found.plain[channel] = sums.plain[channel][i];
      found.weighted[channel] =
          centres.limits[i] * found.plain[channel] - sums.weighted[channel][i];
    }
    rule_.Blend(found, pixels + i * kBytesPerPixel);
  }
}

void NoiseByNeighbors::BlendAll(const NeighborJob& job,
                                const std::vector<std::vector<std::int32_t>>& slices, int lanes,
                                std::uint8_t* pixels) const {
  NoiseSums found[kCentres];
  NeighborJob part = job;
  for (const auto& offsets : slices) {
    part.offsets = offsets.data();
    part.count = static_cast<int>(offsets.size());
    NeighborSums sums;
    kernel_.Add(part, sums);
    for (int i = 0; i < lanes; ++i) {
      for (int channel = 0; channel < 3; ++channel) {
        const std::int64_t plain = sums.plain[channel][i];
        found[i].plain[channel] += plain;
        found[i].weighted[channel] += job.limits[i] * plain - sums.weighted[channel][i];
      }
    }
  }
  for (int i = 0; i < lanes; ++i) rule_.Blend(found[i], pixels + i * kBytesPerPixel);
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
  Centres centres;
  for (int y = piece.top; y < piece.bottom; ++y) {
    for (int x = piece.left; x < piece.right; x += kCentres) {
      const int lanes = std::min(kCentres, piece.right - x);
      Describe(x, y, lanes, centres);
      NeighborJob job;
      job.centres = planes.at(x, y);
      job.plane = planes.plane();
      job.limits = centres.limits;
      job.at_edge = x < radius_ || x + kCentres + radius_ > reference_.width || y < radius_ ||
                    y + radius_ >= reference_.height;
      if (job.at_edge) {
        at_edge = slices_at(x, y);
      } else if (inside.empty()) {
        inside = slices_at(x, y);
      }
      const auto& slices = job.at_edge ? at_edge : inside;
      if (is_small_) {
        job.offsets = slices.front().data();
        job.count = static_cast<int>(slices.front().size());
        BlendMoved(job, centres, lanes, target.at(x, y));
      } else {
        BlendAll(job, slices, lanes, target.at(x, y));
      }
    }
  }
}

double NoiseByNeighbors::Cost(int radius, int limit, Instructions instructions) {
  return NeighborCost(limit, instructions) * 3.15 * (radius + 0.5) * (radius + 0.5);
}

}  // namespace tarnwell
