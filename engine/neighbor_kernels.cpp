#include "engine/neighbor_kernels.h"

#include <algorithm>
#include <cstdlib>

#include "engine/avx2.h"

namespace tarnwell {
namespace {

// Up to this limit, all that one neighbour adds fits comfortably into 16 bits.
constexpr int kNarrowLimit = 64;

// How many neighbours 16-bit sums can take: one adds at most limit / 2 x limit / 2 weighted, and
// limit - 1 plain.
int NarrowCount(int highest_limit) {
  if (highest_limit > kNarrowLimit) return 0;
  const int most = std::max({highest_limit * highest_limit / 4, highest_limit - 1, 1});
  return std::min(32767 / most, 1024) / 2 * 2;
}

// How many neighbours 16-bit plain sums can take at any limit.
constexpr int kWideChunk = 128;

// Any processor. The neighbours from `first` to `last` - 1.
template <typename Weighted>
void SumPlainly(const NeighborJob& job, int first, int last, std::int16_t (&plain)[3][kCentres],
                Weighted (&weighted)[3][kCentres]) {
  for (int channel = 0; channel < 3; ++channel) {
    std::fill_n(plain[channel], kCentres, std::int16_t{0});
    std::fill_n(weighted[channel], kCentres, Weighted{0});
  }
  for (int n = first; n < last; ++n) {
    const std::int8_t* near = job.centres + job.offsets[n];
    std::int16_t change[3][kCentres], weight[kCentres];
    for (int i = 0; i < kCentres; ++i) {
      weight[i] = static_cast<std::int16_t>(near[3 * job.plane + i] ? 0 : job.limits[i]);
    }
    for (int channel = 0; channel < 3; ++channel) {
      const std::int8_t* from = near + channel * job.plane;
      const std::int8_t* centre = job.centres + channel * job.plane;
      for (int i = 0; i < kCentres; ++i) {
        change[channel][i] = static_cast<std::int16_t>(from[i] - centre[i]);
        weight[i] = static_cast<std::int16_t>(weight[i] - std::abs(change[channel][i]));
      }
    }
    for (int channel = 0; channel < 3; ++channel) {
      for (int i = 0; i < kCentres; ++i) {
        const std::int16_t counts = weight[i] > 0 ? -1 : 0;  // all bits or none
        const auto counted = static_cast<std::int16_t>(change[channel][i] & counts);
        plain[channel][i] = static_cast<std::int16_t>(plain[channel][i] + counted);
        weighted[channel][i] =
            static_cast<Weighted>(weighted[channel][i] + Weighted{weight[i]} * Weighted{counted});
      }
    }
  }
}

template <typename Weighted>
void AddChunk(const std::int16_t (&plain)[3][kCentres], const Weighted (&weighted)[3][kCentres],
              NeighborSums& sums) {
  for (int channel = 0; channel < 3; ++channel) {
    for (int i = 0; i < kCentres; ++i) {
      sums.plain[channel][i] += plain[channel][i];
      sums.weighted[channel][i] += weighted[channel][i];
    }
  }
}

void SumNarrowlyPlain(const NeighborJob& job, NarrowSums& sums) {
  SumPlainly(job, 0, job.count, sums.plain, sums.weighted);
}

void AddWidelyPlain(const NeighborJob& job, NeighborSums& sums) {
  for (int first = 0; first < job.count; first += kWideChunk) {
    std::int16_t plain[3][kCentres];
    std::int32_t weighted[3][kCentres];
    SumPlainly(job, first, std::min(first + kWideChunk, job.count), plain, weighted);
    AddChunk(plain, weighted, sums);
  }
}

#ifdef TARNWELL_AVX2

TARNWELL_AVX2 inline __m256i Load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}

// Stores the 16-bit lanes of two vectors that are in the order in which unpacking bytes leaves
// them: `low` has lanes 0 to 7 and 16 to 23, `high` the others.
TARNWELL_AVX2 inline void StoreLanes(__m256i low, __m256i high, std::int16_t* to) {
  auto* halves = reinterpret_cast<__m256i*>(to);
  _mm256_storeu_si256(halves, _mm256_permute2x128_si256(low, high, 0x20));
  _mm256_storeu_si256(halves + 1, _mm256_permute2x128_si256(low, high, 0x31));
}

struct NarrowNeighbor {
  __m256i change[3];  // R' - R saturated: right wherever the neighbour counts
  __m256i weight;     // limit - d, or 0 if the neighbour does not count
};

template <bool kAtEdge>
TARNWELL_AVX2 inline NarrowNeighbor Compare(const std::int8_t* near, std::ptrdiff_t plane,
                                            const __m256i centre[3], __m256i limit) {
  NarrowNeighbor neighbor;
  __m256i difference = kAtEdge ? Load(near + 3 * plane) : _mm256_setzero_si256();
  for (int channel = 0; channel < 3; ++channel) {
    neighbor.change[channel] = _mm256_subs_epi8(Load(near + channel * plane), centre[channel]);
    difference = _mm256_adds_epu8(difference, _mm256_abs_epi8(neighbor.change[channel]));
  }
  neighbor.weight = _mm256_subs_epu8(limit, difference);
  return neighbor;
}

// Two neighbours at a time, so that one instruction multiplies and adds bytes of both.
template <bool kAtEdge>
TARNWELL_AVX2 void SumNarrowly(const NeighborJob& job, NarrowSums& sums) {
  const __m256i zero = _mm256_setzero_si256(), one = _mm256_set1_epi8(1);
  const __m256i centre[3] = {Load(job.centres), Load(job.centres + job.plane),
                             Load(job.centres + 2 * job.plane)};
  alignas(32) std::uint8_t limits[kCentres];
  for (int i = 0; i < kCentres; ++i) limits[i] = static_cast<std::uint8_t>(job.limits[i]);
  const __m256i limit = Load(limits);

  __m256i plain[3][2] = {{zero, zero}, {zero, zero}, {zero, zero}};
  __m256i weighted[3][2] = {{zero, zero}, {zero, zero}, {zero, zero}};
  for (int n = 0; n < job.count; n += 2) {
    // Without a second one, the pixel itself: it differs by 0 and so adds nothing.
    const std::int32_t second = n + 1 < job.count ? job.offsets[n + 1] : 0;
    const NarrowNeighbor a =
        Compare<kAtEdge>(job.centres + job.offsets[n], job.plane, centre, limit);
    const NarrowNeighbor b = Compare<kAtEdge>(job.centres + second, job.plane, centre, limit);
    const __m256i weight[2] = {_mm256_unpacklo_epi8(a.weight, b.weight),
                               _mm256_unpackhi_epi8(a.weight, b.weight)};
    const __m256i counts[2] = {_mm256_min_epu8(weight[0], one), _mm256_min_epu8(weight[1], one)};
    for (int channel = 0; channel < 3; ++channel) {
      const __m256i change[2] = {_mm256_unpacklo_epi8(a.change[channel], b.change[channel]),
                                 _mm256_unpackhi_epi8(a.change[channel], b.change[channel])};
      for (int half = 0; half < 2; ++half) {
        plain[channel][half] = _mm256_add_epi16(plain[channel][half],
                                                _mm256_maddubs_epi16(counts[half], change[half]));
        weighted[channel][half] = _mm256_add_epi16(
            weighted[channel][half], _mm256_maddubs_epi16(weight[half], change[half]));
      }
    }
  }
  for (int channel = 0; channel < 3; ++channel) {
    StoreLanes(plain[channel][0], plain[channel][1], sums.plain[channel]);
    StoreLanes(weighted[channel][0], weighted[channel][1], sums.weighted[channel]);
  }
}

TARNWELL_AVX2 void SumNarrowlyAvx2(const NeighborJob& job, NarrowSums& sums) {
  if (job.at_edge) {
    SumNarrowly<true>(job, sums);
  } else {
    SumNarrowly<false>(job, sums);
  }
}

// 16 bytes as 16-bit lanes.
TARNWELL_AVX2 inline __m256i LoadWide(const std::int8_t* from) {
  return _mm256_cvtepi8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
}

struct WideNeighbor {
  __m256i change[3];
  __m256i weight;
};

TARNWELL_AVX2 inline WideNeighbor CompareWide(const NeighborJob& job, const std::int8_t* near,
                                              const __m256i centre[3], __m256i limit) {
  WideNeighbor neighbor;
  __m256i rest = limit;
  for (int channel = 0; channel < 3; ++channel) {
    neighbor.change[channel] =
        _mm256_sub_epi16(LoadWide(near + channel * job.plane), centre[channel]);
    rest = _mm256_subs_epu16(rest, _mm256_abs_epi16(neighbor.change[channel]));
  }
  if (job.at_edge) {
    const __m256i outside = LoadWide(near + 3 * job.plane);
    rest = _mm256_and_si256(rest, _mm256_cmpeq_epi16(outside, _mm256_setzero_si256()));
  }
  neighbor.weight = rest;
  const __m256i counts = _mm256_cmpgt_epi16(rest, _mm256_setzero_si256());
  for (__m256i& change : neighbor.change) change = _mm256_and_si256(change, counts);
  return neighbor;
}

TARNWELL_AVX2 inline void AddHalf(const NeighborJob& job, int half, int first, int last,
                                  NeighborSums& sums) {
  const int lane = 16 * half;
  const __m256i zero = _mm256_setzero_si256();
  const std::int8_t* centres = job.centres + lane;
  const __m256i centre[3] = {LoadWide(centres), LoadWide(centres + job.plane),
                             LoadWide(centres + 2 * job.plane)};
  const __m256i limit = Load(job.limits + lane);
  __m256i plain[3] = {zero, zero, zero};
  __m256i low[3] = {zero, zero, zero}, high[3] = {zero, zero, zero};
  for (int n = first; n < last; n += 2) {
    const std::int32_t second = n + 1 < last ? job.offsets[n + 1] : 0;
    const WideNeighbor a = CompareWide(job, centres + job.offsets[n], centre, limit);
    const WideNeighbor b = CompareWide(job, centres + second, centre, limit);
    const __m256i weight_low = _mm256_unpacklo_epi16(a.weight, b.weight);
    const __m256i weight_high = _mm256_unpackhi_epi16(a.weight, b.weight);
    for (int channel = 0; channel < 3; ++channel) {
      const __m256i x = a.change[channel], y = b.change[channel];
      plain[channel] = _mm256_add_epi16(plain[channel], _mm256_add_epi16(x, y));
      low[channel] = _mm256_add_epi32(low[channel],
                                      _mm256_madd_epi16(weight_low, _mm256_unpacklo_epi16(x, y)));
      high[channel] = _mm256_add_epi32(high[channel],
                                       _mm256_madd_epi16(weight_high, _mm256_unpackhi_epi16(x, y)));
    }
  }
  for (int channel = 0; channel < 3; ++channel) {
    alignas(32) std::int16_t plains[16];
    alignas(32) std::int32_t lows[8], highs[8];
    _mm256_store_si256(reinterpret_cast<__m256i*>(plains), plain[channel]);
    _mm256_store_si256(reinterpret_cast<__m256i*>(lows), low[channel]);
    _mm256_store_si256(reinterpret_cast<__m256i*>(highs), high[channel]);
    std::int32_t* to_plain = sums.plain[channel] + lane;
    std::int64_t* to_weighted = sums.weighted[channel] + lane;
    for (int i = 0; i < 16; ++i) to_plain[i] += plains[i];
    for (int i = 0; i < 4; ++i) {
      to_weighted[i] += lows[i];
      to_weighted[4 + i] += highs[i];
      to_weighted[8 + i] += lows[4 + i];
      to_weighted[12 + i] += highs[4 + i];
    }
  }
}

TARNWELL_AVX2 void AddWidelyAvx2(const NeighborJob& job, NeighborSums& sums) {
  for (int first = 0; first < job.count; first += kWideChunk) {
    const int last = std::min(first + kWideChunk, job.count);
    for (int half = 0; half < 2; ++half) AddHalf(job, half, first, last, sums);
  }
}

#endif

}  // namespace

NeighborKernel::NeighborKernel(int highest_limit, Instructions instructions)
    : narrow_count_(NarrowCount(highest_limit)),
      sum_narrowly_(SumNarrowlyPlain),
      add_widely_(AddWidelyPlain) {
#ifdef TARNWELL_AVX2
  if (instructions == Instructions::kAvx2) {
    sum_narrowly_ = SumNarrowlyAvx2;
    add_widely_ = AddWidelyAvx2;
  }
#endif
  static_cast<void>(instructions);
}

void NeighborKernel::Add(const NeighborJob& job, NeighborSums& sums) const {
  if (narrow_count_ == 0) return add_widely_(job, sums);
  NeighborJob chunk = job;
  for (int first = 0; first < job.count; first += narrow_count_) {
    chunk.offsets = job.offsets + first;
    chunk.count = std::min(narrow_count_, job.count - first);
    NarrowSums narrow;
    sum_narrowly_(chunk, narrow);
    AddChunk(narrow.plain, narrow.weighted, sums);
  }
}

double NeighborCost(int highest_limit, Instructions instructions) {
  const double narrow = instructions == Instructions::kAvx2 ? 0.13 : 0.6;
  return highest_limit <= kNarrowLimit ? narrow : 2 * narrow;
}

}  // namespace tarnwell
