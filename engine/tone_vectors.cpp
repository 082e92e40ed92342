#include "engine/tone_vectors.h"

#include <algorithm>
#include <cmath>

#include "engine/avx2.h"
#include "engine/rounding.h"

namespace tarnwell {

bool SuitToneVectors(const AdjustmentSettings& settings, Instructions instructions) {
  return instructions == Instructions::kAvx2 && !settings.hue_factors &&
         !settings.white_balance_offsets && FarthestTone(settings, 255) < 32767;
}

#ifdef TARNWELL_AVX2

namespace {

// Pixels at a time: in single precision, which settles nearly all of them, and in double.
constexpr int kLanesInSingle = 8;
constexpr int kLanes = 4;

TARNWELL_AVX2 inline __m256d Rounded(__m256d value) {
  const __m256d no_fraction = _mm256_set1_pd(kNoFraction);
  return _mm256_sub_pd(_mm256_add_pd(value, no_fraction), no_fraction);
}

TARNWELL_AVX2 inline __m128i ChannelOf(__m128i pixels, Channel channel) {
  return _mm_and_si128(_mm_srli_epi32(pixels, 8 * channel), _mm_set1_epi32(255));
}

// The settings, spread over the lanes.
struct Steps {
  __m128i black_level;
  __m256d gain, saturation, contrast;

  TARNWELL_AVX2 explicit Steps(const AdjustmentSettings& settings)
      : black_level(_mm_set1_epi32(settings.black_level)),
        gain(_mm256_set1_pd(settings.gain)),
        saturation(_mm256_set1_pd(settings.saturation_multiplier)),
        contrast(_mm256_set1_pd(settings.contrast_factor)) {}
};

// One channel of the pixels, rounded but for the subtraction of kNoFraction and the clamp: the low
// halves of the lanes are whole numbers.
template <bool kHasContrast>
TARNWELL_AVX2 inline __m256 AdjustChannel(__m128i channel, __m256d average, const Steps& steps) {
  const __m256d no_fraction = _mm256_set1_pd(kNoFraction);
  const __m128i lifted =
      _mm_max_epi32(_mm_sub_epi32(channel, steps.black_level), _mm_setzero_si128());
  const __m256d start = Rounded(_mm256_mul_pd(_mm256_cvtepi32_pd(lifted), steps.gain));
  const __m256d from_average = _mm256_sub_pd(start, average);
  __m256d tone = _mm256_add_pd(_mm256_mul_pd(from_average, steps.saturation), average);
  if constexpr (kHasContrast) {
    tone = Rounded(tone);
    const __m256d from_middle = _mm256_sub_pd(_mm256_set1_pd(128), tone);
    tone = _mm256_add_pd(tone, _mm256_mul_pd(from_middle, steps.contrast));
  }
  return _mm256_castpd_ps(_mm256_add_pd(tone, no_fraction));
}

// The low halves of both, pixels 0 and 1 in the lower half of the vector, 2 and 3 in the upper.
TARNWELL_AVX2 inline __m256i LowHalves(__m256 a, __m256 b) {
  return _mm256_castps_si256(_mm256_shuffle_ps(a, b, 0x88));
}

template <bool kHasContrast>
TARNWELL_AVX2 inline __m128i AdjustPixels(__m128i values, __m128i start, const Steps& steps) {
  const __m128i sum = _mm_add_epi32(
      _mm_add_epi32(ChannelOf(start, kBlue), ChannelOf(start, kGreen)), ChannelOf(start, kRed));
  const __m256d average = _mm256_div_pd(_mm256_cvtepi32_pd(sum), _mm256_set1_pd(3));
  const __m256 blue = AdjustChannel<kHasContrast>(ChannelOf(values, kBlue), average, steps);
  const __m256 green = AdjustChannel<kHasContrast>(ChannelOf(values, kGreen), average, steps);
  const __m256 red = AdjustChannel<kHasContrast>(ChannelOf(values, kRed), average, steps);
  // Narrowing clamps: to 16 bits, which changes nothing, then to 0..255.
  const __m256i words = _mm256_packs_epi32(LowHalves(blue, green), LowHalves(red, red));
  const __m128i bytes =
      _mm_packus_epi16(_mm256_castsi256_si128(words), _mm256_extracti128_si256(words, 1));
  const __m128i colours = _mm_shuffle_epi8(
      bytes, _mm_setr_epi8(0, 2, 4, -1, 1, 3, 5, -1, 8, 10, 12, -1, 9, 11, 13, -1));
  return _mm_or_si128(colours, _mm_andnot_si128(_mm_set1_epi32(0xFFFFFF), values));
}

TARNWELL_AVX2 inline __m256i ChannelOf(__m256i pixels, Channel channel) {
  return _mm256_and_si256(_mm256_srli_epi32(pixels, 8 * channel), _mm256_set1_epi32(255));
}

// The same steps in single precision, which errs by less than `error`. Rounding gives what it gives
// in double unless a value is that near to the middle between two whole numbers.
struct StepsInSingle {
  __m256i black_level;
  __m256 gain, saturation, contrast;
  __m256 safe_distance;  // from the whole number that a value is rounded to

  TARNWELL_AVX2 explicit StepsInSingle(const AdjustmentSettings& settings)
      : black_level(_mm256_set1_epi32(settings.black_level)),
        gain(_mm256_set1_ps(static_cast<float>(settings.gain))),
        saturation(_mm256_set1_ps(static_cast<float>(settings.saturation_multiplier))),
        contrast(_mm256_set1_ps(static_cast<float>(settings.contrast_factor))) {
    // A step takes at most eight operations and conversions of factors, each of which errs by at
    // most 2^-24 of the largest value met. Twice that.
    const double error = FarthestTone(settings, 255) * 0x1p-20;
    safe_distance = _mm256_set1_ps(static_cast<float>(0.5 - error));
  }
};

// `value` rounded; `farthest` grows to the distance where that is more.
TARNWELL_AVX2 inline __m256 Rounded(__m256 value, __m256& farthest) {
  const __m256 rounded = _mm256_round_ps(value, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
  const __m256 distance = _mm256_andnot_ps(_mm256_set1_ps(-0.0f), _mm256_sub_ps(value, rounded));
  farthest = _mm256_max_ps(farthest, distance);
  return rounded;
}

template <bool kHasContrast>
TARNWELL_AVX2 inline __m256i AdjustChannel(__m256i channel, __m256 average,
                                           const StepsInSingle& steps, __m256& farthest) {
  const __m256i lifted =
      _mm256_max_epi32(_mm256_sub_epi32(channel, steps.black_level), _mm256_setzero_si256());
  const __m256 start = Rounded(_mm256_mul_ps(_mm256_cvtepi32_ps(lifted), steps.gain), farthest);
  const __m256 from_average = _mm256_sub_ps(start, average);
  __m256 tone =
      Rounded(_mm256_add_ps(_mm256_mul_ps(from_average, steps.saturation), average), farthest);
  if constexpr (kHasContrast) {
    const __m256 from_middle = _mm256_sub_ps(_mm256_set1_ps(128), tone);
    tone = Rounded(_mm256_add_ps(tone, _mm256_mul_ps(from_middle, steps.contrast)), farthest);
  }
  return _mm256_cvtps_epi32(tone);
}

// False, with nothing written, when single precision does not settle every pixel.
template <bool kHasContrast>
TARNWELL_AVX2 inline bool AdjustInSingle(const std::uint8_t* values, const std::uint8_t* start,
                                         const StepsInSingle& steps, std::uint8_t* out) {
  const auto value = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(values));
  const auto before = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(start));
  const __m256i sum =
      _mm256_add_epi32(_mm256_add_epi32(ChannelOf(before, kBlue), ChannelOf(before, kGreen)),
                       ChannelOf(before, kRed));
  const __m256 average = _mm256_mul_ps(_mm256_cvtepi32_ps(sum), _mm256_set1_ps(1 / 3.0f));
  __m256 farthest = _mm256_setzero_ps();
  const __m256i blue =
      AdjustChannel<kHasContrast>(ChannelOf(value, kBlue), average, steps, farthest);
  const __m256i green =
      AdjustChannel<kHasContrast>(ChannelOf(value, kGreen), average, steps, farthest);
  const __m256i red = AdjustChannel<kHasContrast>(ChannelOf(value, kRed), average, steps, farthest);
  if (_mm256_movemask_ps(_mm256_cmp_ps(farthest, steps.safe_distance, _CMP_GT_OQ)) != 0) {
    return false;
  }
  const __m256i bytes = _mm256_packus_epi16(_mm256_packs_epi32(blue, green),
                                            _mm256_packs_epi32(red, _mm256_setzero_si256()));
  const __m256i colours =
      _mm256_shuffle_epi8(bytes, _mm256_broadcastsi128_si256(_mm_setr_epi8(
                                     0, 4, 8, -1, 1, 5, 9, -1, 2, 6, 10, -1, 3, 7, 11, -1)));
  _mm256_storeu_si256(
      reinterpret_cast<__m256i*>(out),
      _mm256_or_si256(colours, _mm256_andnot_si256(_mm256_set1_epi32(0xFFFFFF), value)));
  return true;
}

template <bool kHasContrast>
TARNWELL_AVX2 void AdjustRow(const std::uint8_t* values, const std::uint8_t* start, int count,
                             const AdjustmentSettings& settings, std::uint8_t* out) {
  const StepsInSingle in_single(settings);
  const Steps steps(settings);
  constexpr std::ptrdiff_t kMost = kLanesInSingle * kBytesPerPixel;
  const std::ptrdiff_t end = std::ptrdiff_t{count} * kBytesPerPixel;
  for (std::ptrdiff_t i = 0; i < end;) {
    const std::ptrdiff_t next = std::min(i + kMost, end);
    if (next == i + kMost &&
        AdjustInSingle<kHasContrast>(values + i, start + i, in_single, out + i)) {
      i = next;
      continue;
    }
    for (; i < next; i += sizeof(__m128i)) {
      const auto value = _mm_loadu_si128(reinterpret_cast<const __m128i*>(values + i));
      const auto before = _mm_loadu_si128(reinterpret_cast<const __m128i*>(start + i));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i),
                       AdjustPixels<kHasContrast>(value, before, steps));
    }
  }
}

}  // namespace

TARNWELL_AVX2 void AdjustPieceInVectors(const PixelView& values, const PixelView& start,
                                        const PicturePiece& piece,
                                        const AdjustmentSettings& settings, MutablePixelView out) {
  const auto adjust_row = settings.contrast_factor != 0 ? &AdjustRow<true> : &AdjustRow<false>;
  const int right = piece.right - (piece.right - piece.left) % kLanes;
  for (int y = piece.top; y < piece.bottom; ++y) {
    adjust_row(values.at(piece.left, y), start.at(piece.left, y), right - piece.left, settings,
               out.at(piece.left, y));
  }
  AdjustPiece(values, start, {right, piece.top, piece.right, piece.bottom}, settings, nullptr, out);
}

#else

void AdjustPieceInVectors(const PixelView& values, const PixelView& start,
                          const PicturePiece& piece, const AdjustmentSettings& settings,
                          MutablePixelView out) {
  AdjustPiece(values, start, piece, settings, nullptr, out);
}

#endif

}  // namespace tarnwell
