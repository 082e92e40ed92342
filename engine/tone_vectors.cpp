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

template <bool kHasContrast>
TARNWELL_AVX2 void AdjustRow(const std::uint8_t* values, const std::uint8_t* start, int count,
                             const Steps& steps, std::uint8_t* out) {
  for (std::ptrdiff_t i = 0; i < std::ptrdiff_t{count} * kBytesPerPixel; i += sizeof(__m128i)) {
    const auto value = _mm_loadu_si128(reinterpret_cast<const __m128i*>(values + i));
    const auto before = _mm_loadu_si128(reinterpret_cast<const __m128i*>(start + i));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + i),
                     AdjustPixels<kHasContrast>(value, before, steps));
  }
}

}  // namespace

TARNWELL_AVX2 void AdjustPieceInVectors(const PixelView& values, const PixelView& start,
                                        const PicturePiece& piece,
                                        const AdjustmentSettings& settings, MutablePixelView out) {
  const Steps steps(settings);
  const auto adjust_row = settings.contrast_factor != 0 ? &AdjustRow<true> : &AdjustRow<false>;
  const int right = piece.right - (piece.right - piece.left) % kLanes;
  for (int y = piece.top; y < piece.bottom; ++y) {
    adjust_row(values.at(piece.left, y), start.at(piece.left, y), right - piece.left, steps,
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
