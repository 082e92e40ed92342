#include "engine/color_look_up.h"

#include "engine/avx2.h"

namespace tarnwell {
namespace {

void PlainNarrow(const std::uint16_t* run, const NearColors& near, const ColorCells& cells,
                 std::int32_t sums[6]) {
  LookUpColors(run, near, cells, sums);
}

void PlainWide(const std::uint32_t* run, const NearColors& near, const ColorCells& cells,
               std::int32_t sums[6]) {
  LookUpColors(run, near, cells, sums);
}

#ifdef TARNWELL_AVX2

TARNWELL_AVX2 void Avx2Wide(const std::uint32_t* run, const NearColors& near,
                            const ColorCells& cells, std::int32_t sums[6]) {
  LookUpColors(run, near, cells, sums);
}

TARNWELL_AVX2 inline __m256i Load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}

struct Avx2Totals {
  __m256i plain;
  __m256i weighted;
};

TARNWELL_AVX2 inline void Add(Avx2Totals& totals, __m256i values, const std::int16_t* factors,
                              int lanes) {
  totals.plain = _mm256_add_epi32(totals.plain, _mm256_madd_epi16(values, Load(factors)));
  totals.weighted =
      _mm256_add_epi32(totals.weighted, _mm256_madd_epi16(values, Load(factors + lanes)));
}

TARNWELL_AVX2 inline std::int32_t SumOfLanes(__m256i lanes) {
  __m128i four = _mm_add_epi32(_mm256_castsi256_si128(lanes), _mm256_extracti128_si256(lanes, 1));
  four = _mm_add_epi32(four, _mm_shuffle_epi32(four, 0x4E));
  four = _mm_add_epi32(four, _mm_shuffle_epi32(four, 0xB1));
  return _mm_cvtsi128_si32(four);
}

// LookUpColors, with the totals kept in vectors to the end.
TARNWELL_AVX2 void Avx2Narrow(const std::uint16_t* first_run, const NearColors& near,
                              const ColorCells& cells, std::int32_t sums[6]) {
  const int lanes = near.lanes();
  const std::int64_t green_step = cells.green_step, red_step = cells.red_step;
  const __m256i zero = _mm256_setzero_si256();
  Avx2Totals blue = {zero, zero}, green = {zero, zero}, red = {zero, zero};
  for (int lane = 0; lane < lanes; lane += 16) {
    const std::uint16_t* run = first_run + lane;
    Add(blue, Load(run), near.factors(0, 0) + lane, lanes);
    for (int e = 1; e < near.limit(); ++e) {
      const __m256i g1 = Load(run + e * green_step), g2 = Load(run - e * green_step);
      const __m256i r1 = Load(run + e * red_step), r2 = Load(run - e * red_step);
      __m256i all = _mm256_add_epi16(_mm256_add_epi16(g1, g2), _mm256_add_epi16(r1, r2));
      Add(green, _mm256_sub_epi16(g1, g2), near.factors(e, e) + lane, lanes);
      Add(red, _mm256_sub_epi16(r1, r2), near.factors(e, e) + lane, lanes);
      for (int r = 1; r < e; ++r) {
        const int g = e - r;
        const std::uint16_t* above = run + r * red_step;
        const std::uint16_t* below = run - r * red_step;
        const __m256i pp = Load(above + g * green_step), pm = Load(above - g * green_step);
        const __m256i mp = Load(below + g * green_step), mm = Load(below - g * green_step);
        const __m256i p = _mm256_add_epi16(pp, pm), m = _mm256_add_epi16(mp, mm);
        all = _mm256_add_epi16(all, _mm256_add_epi16(p, m));
        const __m256i greens = _mm256_add_epi16(_mm256_sub_epi16(pp, pm), _mm256_sub_epi16(mp, mm));
        Add(green, greens, near.factors(e, g) + lane, lanes);
        Add(red, _mm256_sub_epi16(p, m), near.factors(e, r) + lane, lanes);
      }
      Add(blue, all, near.factors(e, 0) + lane, lanes);
    }
  }
  sums[kBlue] = SumOfLanes(blue.plain);
  sums[kGreen] = SumOfLanes(green.plain);
  sums[kRed] = SumOfLanes(red.plain);
  sums[3 + kBlue] = SumOfLanes(blue.weighted);
  sums[3 + kGreen] = SumOfLanes(green.weighted);
  sums[3 + kRed] = SumOfLanes(red.weighted);
}

#endif

}  // namespace

ColorLookUps ColorLookUpsFor(Instructions instructions) {
#ifdef TARNWELL_AVX2
  if (instructions == Instructions::kAvx2) return {Avx2Narrow, Avx2Wide};
#endif
  static_cast<void>(instructions);
  return {PlainNarrow, PlainWide};
}

}  // namespace tarnwell
