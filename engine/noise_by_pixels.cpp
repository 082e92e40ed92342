#include "engine/noise_by_pixels.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "engine/avx2.h"

namespace tarnwell {
namespace {

NoiseSums AddPlainly(const NeighborRuns& neighbors, const std::int8_t centre[3], int limit) {
  NoiseSums sums;
  for (const auto& [first, count] : neighbors.runs) {
    for (const std::int8_t* near = first; near < first + count; ++near) {
      int change[3], difference = 0;
      for (int channel = 0; channel < 3; ++channel) {
        change[channel] = near[channel * neighbors.plane] - centre[channel];
        difference += std::abs(change[channel]);
      }
      if (difference >= limit) continue;
      for (int channel = 0; channel < 3; ++channel) {
        sums.plain[channel] += change[channel];
        sums.weighted[channel] += (limit - difference) * change[channel];
      }
    }
  }
  return sums;
}

#ifdef TARNWELL_AVX2

constexpr int kLanes = 32;

// From byte kLanes - n on, the first n lanes are in and the others out.
constexpr std::array<std::uint8_t, 2 * kLanes> kFirstLanes = [] {
  std::array<std::uint8_t, 2 * kLanes> lanes = {};
  for (int i = 0; i < kLanes; ++i) lanes[i] = 255;
  return lanes;
}();

TARNWELL_AVX2 inline __m256i Load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}

TARNWELL_AVX2 inline std::int32_t SumOfLanes(__m256i lanes) {
  const __m256i pairs = _mm256_madd_epi16(lanes, _mm256_set1_epi16(1));
  __m128i four = _mm_add_epi32(_mm256_castsi256_si128(pairs), _mm256_extracti128_si256(pairs, 1));
  four = _mm_add_epi32(four, _mm_shuffle_epi32(four, 0x4E));
  four = _mm_add_epi32(four, _mm_shuffle_epi32(four, 0xB1));
  return _mm_cvtsi128_si32(four);
}

struct Totals {
  __m256i plain[3];
  __m256i weighted[3];
};

TARNWELL_AVX2 inline void Clear(Totals& totals) {
  for (__m256i& lanes : totals.plain) lanes = _mm256_setzero_si256();
  for (__m256i& lanes : totals.weighted) lanes = _mm256_setzero_si256();
}

TARNWELL_AVX2 void Move(Totals& totals, NoiseSums& sums) {
  for (int channel = 0; channel < 3; ++channel) {
    sums.plain[channel] += SumOfLanes(totals.plain[channel]);
    sums.weighted[channel] += SumOfLanes(totals.weighted[channel]);
  }
  Clear(totals);
}

TARNWELL_AVX2 NoiseSums AddAvx2(const NeighborRuns& neighbors, const std::int8_t centre[3],
                                int limit) {
  // One vector adds at most 2 x 8 x 8 to a lane of 16 bits.
  constexpr int kMostVectors = 255;
  const __m256i one = _mm256_set1_epi8(1);
  const __m256i level[3] = {_mm256_set1_epi8(centre[0]), _mm256_set1_epi8(centre[1]),
                            _mm256_set1_epi8(centre[2])};
  const __m256i limits = _mm256_set1_epi8(static_cast<char>(limit));
  NoiseSums sums;
  Totals totals;
  Clear(totals);
  int vectors = 0;
  for (const auto& [first, count] : neighbors.runs) {
    for (int i = 0; i < count; i += kLanes) {
      const int lanes = std::min(count - i, kLanes);
      const __m256i counted = _mm256_and_si256(limits, Load(&kFirstLanes[kLanes - lanes]));
      __m256i change[3], difference = _mm256_setzero_si256();
      for (int channel = 0; channel < 3; ++channel) {
        const __m256i near = Load(first + channel * neighbors.plane + i);
        change[channel] = _mm256_subs_epi8(near, level[channel]);
        difference = _mm256_adds_epu8(difference, _mm256_abs_epi8(change[channel]));
      }
      const __m256i weight = _mm256_subs_epu8(counted, difference);
      const __m256i counts = _mm256_min_epu8(weight, one);
      for (int channel = 0; channel < 3; ++channel) {
        totals.plain[channel] =
            _mm256_add_epi16(totals.plain[channel], _mm256_maddubs_epi16(counts, change[channel]));
        totals.weighted[channel] = _mm256_add_epi16(totals.weighted[channel],
                                                    _mm256_maddubs_epi16(weight, change[channel]));
      }
      if (++vectors % kMostVectors == 0) Move(totals, sums);
    }
  }
  Move(totals, sums);
  return sums;
}

#endif

NoiseByPixels::AddRuns AddRunsFor(Instructions instructions) {
#ifdef TARNWELL_AVX2
  if (instructions == Instructions::kAvx2) return AddAvx2;
#endif
  static_cast<void>(instructions);
  return AddPlainly;
}

}  // namespace

NoiseByPixels::NoiseByPixels(const PixelView& reference, const NoiseRule& rule, int radius,
                             Instructions instructions)
    : reference_(reference), rule_(rule), radius_(radius), add_runs_(AddRunsFor(instructions)) {
  for (int dy = 0; dy <= radius; ++dy) half_widths_.push_back(DiscHalfWidth(radius, dy));
}

void NoiseByPixels::Smooth(const PlanarPiece& planes, int x, int y, MutablePixelView target) const {
  std::uint8_t* pixel = target.at(x, y);
  const std::int8_t centre[3] = {PlanarPiece::Level(pixel[kBlue]),
                                 PlanarPiece::Level(pixel[kGreen]),
                                 PlanarPiece::Level(pixel[kRed])};
  const int limit = rule_.limit(SumOfChannels(pixel));
  NeighborRuns neighbors;
  neighbors.plane = planes.plane();
  const int bottom = std::min(y + radius_, reference_.height - 1);
  for (int row = std::max(y - radius_, 0); row <= bottom; ++row) {
    const int half_width = half_widths_[std::abs(row - y)];
    const int first = std::max(x - half_width, 0);
    const int last = std::min(x + half_width, reference_.width - 1);
    neighbors.runs.push_back({planes.at(first, row), last - first + 1});
  }
  NoiseSums sums = add_runs_(neighbors, centre, limit);
  for (int channel = 0; channel < 3; ++channel) {
    sums.weighted[channel] = limit * sums.plain[channel] - sums.weighted[channel];
  }
  rule_.Blend(sums, pixel);
}

double NoiseByPixels::Cost(int radius, Instructions instructions) {
  const double per_neighbour = instructions == Instructions::kAvx2 ? 0.3 : 4;
  return per_neighbour * 3.15 * (radius + 0.5) * (radius + 0.5);
}

}  // namespace tarnwell
