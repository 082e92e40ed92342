#include "engine/focus_vectors.h"

#include <array>
#include <cmath>

#include "engine/avx2.h"
#include "engine/rounding.h"

namespace tarnwell {

bool SuitFocusVectors(const AdjustmentSettings& settings, Instructions instructions) {
  const double farthest = 256 + 255 * std::abs(settings.focus->amount);
  return instructions == Instructions::kAvx2 && FarthestTone(settings, farthest) < 32767;
}

#ifdef TARNWELL_AVX2

namespace {

// A third of every sum of three channels: looked up faster than divided.
constexpr std::array<double, 766> kThirds = [] {
  std::array<double, 766> thirds = {};
  for (int sum = 0; sum < 766; ++sum) thirds[sum] = sum / 3.0;
  return thirds;
}();

TARNWELL_AVX2 inline __m256d Rounded(__m256d values) {
  const __m256d no_fraction = _mm256_set1_pd(kNoFraction);
  return _mm256_sub_pd(_mm256_add_pd(values, no_fraction), no_fraction);
}

// The settings of a pixel's channels blue, green, red. Those of the unused byte leave it as it is.
struct Lanes {
  __m256d amount, black_level, gain, hue, white_balance, saturation, contrast;

  TARNWELL_AVX2 explicit Lanes(const AdjustmentSettings& settings)
      : amount(OfColours(settings.focus->amount)),
        black_level(OfColours(settings.black_level)),
        gain(OfColours(settings.gain, 1)),
        hue(OfFactors(settings.hue_factors)),
        white_balance(OfFactors(settings.white_balance_offsets)),
        saturation(OfColours(settings.saturation_multiplier, 1)),
        contrast(OfColours(settings.contrast_factor)) {}

 private:
  TARNWELL_AVX2 static __m256d OfColours(double value, double unused = 0) {
    return _mm256_setr_pd(value, value, value, unused);
  }
  // Factors come in the order red, green, blue. A step that is off changes nothing with 0.
  template <typename Factors>
  TARNWELL_AVX2 static __m256d OfFactors(const Factors& factors) {
    if (!factors) return _mm256_setzero_pd();
    return _mm256_setr_pd((*factors)[2], (*factors)[1], (*factors)[0], 0);
  }
};

// The bytes of a pixel from its channels, rounded and clamped.
TARNWELL_AVX2 inline __m128i BytesOf(__m256d values) {
  // kNoFraction leaves whole numbers in the lower halves.
  const __m256 halves = _mm256_castpd_ps(_mm256_add_pd(values, _mm256_set1_pd(kNoFraction)));
  const __m128i numbers = _mm_castps_si128(
      _mm_shuffle_ps(_mm256_castps256_ps128(halves), _mm256_extractf128_ps(halves, 1), 0x88));
  const __m128i words = _mm_packs_epi32(numbers, numbers);
  return _mm_packus_epi16(words, words);
}

// The bytes of a pixel as numbers.
TARNWELL_AVX2 inline __m128i LoadChannels(const std::uint8_t* pixel) {
  return _mm_cvtepu8_epi32(_mm_loadu_si32(pixel));
}

TARNWELL_AVX2 inline __m128i LoadSum(const std::int32_t* sum) {
  return _mm_load_si128(reinterpret_cast<const __m128i*>(sum));
}

TARNWELL_AVX2 inline void StoreSum(__m128i sum, std::int32_t* to) {
  _mm_store_si128(reinterpret_cast<__m128i*>(to), sum);
}

TARNWELL_AVX2 inline int SumOfColours(const std::uint8_t* pixel) {
  const __m128i colours = _mm_and_si128(_mm_loadu_si32(pixel), _mm_set1_epi32(0xFFFFFF));
  return _mm_cvtsi128_si32(_mm_sad_epu8(colours, _mm_setzero_si128()));
}

// What is under way of the pixels of one row of all columns. Every stage is done for all of them
// before the next: within a column one waits for the other.
struct UnderWay {
  __m128i sum[kFocusColumns];  // over the window
  __m256d values[kFocusColumns];
};

// Brings the windows down to the row that is `step` rows on, and sharpens.
TARNWELL_AVX2 inline void Sharpen(const FocusPlace* places, std::ptrdiff_t step,
                                  std::ptrdiff_t distance, const Lanes& lanes, UnderWay& all) {
  const std::ptrdiff_t byte = step * kBytesPerPixel;
#pragma GCC unroll 8
  for (int i = 0; i < kFocusColumns; ++i) {
    const FocusPlace& place = places[i];
    std::int32_t* row = place.row_sum + step * 4;
    const __m128i entered = _mm_sub_epi32(
        _mm_add_epi32(LoadSum(row + distance * 4), LoadChannels(place.entering + byte)),
        LoadChannels(place.leaving + byte));
    StoreSum(entered, row + distance * 4);
    const __m128i left = LoadSum(row - (distance + 1) * 4);
    all.sum[i] = _mm_sub_epi32(_mm_add_epi32(all.sum[i], entered), left);
    const __m128i pixel = LoadChannels(place.pixel + byte);
    const __m128i neighbors = _mm_sub_epi32(all.sum[i], pixel);
    const __m256d mean =
        _mm256_div_pd(_mm256_cvtepi32_pd(neighbors), _mm256_broadcast_sd(&place.divisor));
    // The unused byte stays that of the pixel, whatever the smooth one has.
    const __m256d start =
        _mm256_cvtepi32_pd(_mm_blend_epi32(LoadChannels(place.smooth + byte), pixel, 0b1000));
    const __m256d change = Rounded(_mm256_mul_pd(_mm256_sub_pd(start, mean), lanes.amount));
    all.values[i] = _mm256_add_pd(start, change);
  }
}

// The steps after the filters but for the last rounding. With `kAllSteps` those that are off are
// done with factors of 0.
template <bool kAllSteps>
TARNWELL_AVX2 inline void AdjustTones(const FocusPlace* places, std::ptrdiff_t step,
                                      const Lanes& lanes, UnderWay& all) {
#pragma GCC unroll 8
  for (int i = 0; i < kFocusColumns; ++i) {
    __m256d& value = all.values[i];
    value = _mm256_max_pd(_mm256_sub_pd(value, lanes.black_level), _mm256_setzero_pd());
    value = Rounded(_mm256_mul_pd(value, lanes.gain));
    if constexpr (kAllSteps) {
      value = Rounded(_mm256_add_pd(value, _mm256_mul_pd(value, lanes.hue)));
      value = Rounded(_mm256_add_pd(value, _mm256_mul_pd(value, lanes.white_balance)));
    }
  }
#pragma GCC unroll 8
  for (int i = 0; i < kFocusColumns; ++i) {
    __m256d& value = all.values[i];
    const int starting_sum = SumOfColours(places[i].pixel + step * kBytesPerPixel);
    const __m256d average = _mm256_broadcast_sd(&kThirds[starting_sum]);
    const __m256d from_average = _mm256_sub_pd(value, average);
    value = _mm256_add_pd(_mm256_mul_pd(from_average, lanes.saturation), average);
    if constexpr (kAllSteps) {
      value = Rounded(value);
      const __m256d from_middle = _mm256_sub_pd(_mm256_set1_pd(128), value);
      value = _mm256_add_pd(value, _mm256_mul_pd(from_middle, lanes.contrast));
    }
  }
}

// Writes the pixels, which count as they are now from here on.
TARNWELL_AVX2 inline void Write(const FocusPlace* places, std::ptrdiff_t step, UnderWay& all) {
#pragma GCC unroll 8
  for (int i = 0; i < kFocusColumns; ++i) {
    std::uint8_t* pixel = places[i].pixel + step * kBytesPerPixel;
    std::int32_t* row = places[i].row_sum + step * 4;
    const __m128i bytes = BytesOf(all.values[i]);
    const __m128i change = _mm_sub_epi32(_mm_cvtepu8_epi32(bytes), LoadChannels(pixel));
    _mm_storeu_si32(pixel, bytes);
    StoreSum(_mm_add_epi32(LoadSum(row), change), row);
    all.sum[i] = _mm_add_epi32(all.sum[i], change);
  }
}

template <bool kAllSteps>
TARNWELL_AVX2 void AdjustPlaces(const AdjustmentSettings& settings, FocusPlace* places, int rows) {
  const Lanes lanes(settings);
  UnderWay all;
  for (int i = 0; i < kFocusColumns; ++i) {
    all.sum[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(places[i].sum));
  }
  for (std::ptrdiff_t step = 0; step < rows; ++step) {
    Sharpen(places, step, settings.focus->distance, lanes, all);
    AdjustTones<kAllSteps>(places, step, lanes, all);
    Write(places, step, all);
  }
  for (int i = 0; i < kFocusColumns; ++i) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(places[i].sum), all.sum[i]);
  }
}

}  // namespace

void AdjustInFocusVectors(const AdjustmentSettings& settings, FocusPlace* places, int rows) {
  const bool all_steps =
      settings.hue_factors || settings.white_balance_offsets || settings.contrast_factor != 0;
  (all_steps ? AdjustPlaces<true> : AdjustPlaces<false>)(settings, places, rows);
}

#else

void AdjustInFocusVectors(const AdjustmentSettings&, FocusPlace*, int) {}

#endif

}  // namespace tarnwell
