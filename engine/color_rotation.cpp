#include "engine/color_rotation.h"

#include <algorithm>
#include <cstdint>

#include "engine/avx2.h"

namespace tarnwell {
namespace {

// A turn of 0 to 359 degrees.
struct HueTurn {
  int sixths;   // whole ones, 0 to 5
  int degrees;  // what remains, 0 to 59
};

// numerator / 60 rounded half to even, for 0 to 60 x 255.
int SixtiethsRounded(int numerator) {
  const int whole = (numerator + 30) / 60;
  const bool is_tie = whole * 60 == numerator + 30;
  return is_tie ? whole & ~1 : whole;
}

// Hues are told as a sixth of the circle (0 from red to yellow, 1 from yellow to green, ...) and
// the degrees into it times the spread, max - min: a whole number of at most 60 x 255.
void RotatePixel(std::uint8_t* pixel, const HueTurn& turn) {
  const int blue = pixel[kBlue], green = pixel[kGreen], red = pixel[kRed];
  const int max = std::max({blue, green, red}), min = std::min({blue, green, red});
  const int spread = max - min;
  // How far the hue is beyond, or before, that of the highest channel; in parts of the spread.
  const int beyond = max == red ? green - blue : max == green ? blue - red : red - green;
  int sixth = turn.sixths + (max == red ? 0 : max == green ? 2 : 4);
  int degrees = 60 * beyond + turn.degrees * spread;
  if (beyond < 0) {
    degrees += 60 * spread;
    --sixth;
  }
  // A hue at the end of its sixth is at the start of the next.
  if (degrees >= 60 * spread) {
    degrees -= 60 * spread;
    ++sixth;
  }
  sixth = (sixth + 6) % 6;

  // In an even sixth the middle channel rises from min to max, in an odd one it falls.
  const bool falls = sixth % 2 == 1;
  const int middle = SixtiethsRounded(falls ? 60 * max - degrees : 60 * min + degrees);
  constexpr Channel kAround[] = {kRed, kGreen, kBlue, kRed, kGreen};
  const Channel* channels = kAround + sixth / 2;
  pixel[channels[0]] = static_cast<std::uint8_t>(falls ? middle : max);
  pixel[channels[1]] = static_cast<std::uint8_t>(falls ? max : middle);
  pixel[channels[2]] = static_cast<std::uint8_t>(min);
}

#ifdef TARNWELL_AVX2

constexpr int kLanes = 16;
// A comparison gives all bits or none per lane.
typedef std::int16_t Lanes __attribute__((vector_size(2 * kLanes)));

TARNWELL_AVX2 inline Lanes Select(Lanes mask, Lanes yes, Lanes no) {
  return Lanes(_mm256_blendv_epi8(__m256i(no), __m256i(yes), __m256i(mask)));
}

TARNWELL_AVX2 inline Lanes Max(Lanes a, Lanes b) {
  return Lanes(_mm256_max_epi16(__m256i(a), __m256i(b)));
}

TARNWELL_AVX2 inline Lanes Min(Lanes a, Lanes b) {
  return Lanes(_mm256_min_epi16(__m256i(a), __m256i(b)));
}

TARNWELL_AVX2 inline Lanes SixtiethsRounded(Lanes numerator) {
  // For what a quarter can be, 0 to 3832, 4370 / 2^16 is near enough to 1 / 15.
  const Lanes up = numerator + 30, quarter = up >> 2;
  const auto whole = Lanes(_mm256_mulhi_epu16(__m256i(quarter), _mm256_set1_epi16(4370)));
  const Lanes is_tie = whole * 60 == up;
  return whole - (is_tie & whole & 1);
}

// The steps of RotatePixel; every number of theirs fits 16 bits.
TARNWELL_AVX2 inline void RotateLanes(Lanes& blue, Lanes& green, Lanes& red, const HueTurn& turn) {
  const Lanes max = Max(Max(blue, green), red), min = Min(Min(blue, green), red);
  const Lanes spread = max - min, full = 60 * spread;
  const Lanes is_red = max == red, is_green = max == green;
  const Lanes beyond = Select(is_red, green - blue, Select(is_green, blue - red, red - green));
  const Lanes highest = ~is_red & (4 - (is_green & 2));
  const Lanes before = beyond < 0;
  Lanes degrees = 60 * beyond + (before & full) + static_cast<std::int16_t>(turn.degrees) * spread;
  const Lanes next = ~(full > degrees);
  degrees -= next & full;
  Lanes sixth = highest + static_cast<std::int16_t>(turn.sixths) + before - next;
  sixth += (sixth < 0) & 6;
  sixth -= (sixth > 5) & 6;

  const Lanes falls = (sixth & 1) == 1;
  const Lanes middle =
      SixtiethsRounded(60 * Select(falls, max, min) + Select(falls, -degrees, degrees));
  const Lanes first = Select(falls, middle, max), second = Select(falls, max, middle);
  const Lanes from_red = sixth<2, from_blue = sixth> 3;
  red = Select(from_red, first, Select(from_blue, second, min));
  green = Select(from_red, second, Select(from_blue, min, first));
  blue = Select(from_red, min, Select(from_blue, first, second));
}

TARNWELL_AVX2 void RotateBlock(std::uint8_t* pixels, const HueTurn& turn) {
  auto* halves = reinterpret_cast<__m256i*>(pixels);
  const __m256i first = _mm256_loadu_si256(halves), last = _mm256_loadu_si256(halves + 1);
  // Two channels in each lane, the even one in its low byte; back in the same order below.
  const __m256i low = _mm256_set1_epi32(0xFFFF);
  const auto blue_green =
      Lanes(_mm256_packus_epi32(_mm256_and_si256(first, low), _mm256_and_si256(last, low)));
  const auto red_unused =
      Lanes(_mm256_packus_epi32(_mm256_srli_epi32(first, 16), _mm256_srli_epi32(last, 16)));
  Lanes blue = blue_green & 255, red = red_unused & 255;
  Lanes green = Lanes(_mm256_srli_epi16(__m256i(blue_green), 8));
  RotateLanes(blue, green, red, turn);
  const auto new_blue_green = __m256i(blue | green << 8);
  const auto new_red_unused = __m256i(red | (red_unused & ~Lanes{} << 8));
  _mm256_storeu_si256(halves, _mm256_unpacklo_epi16(new_blue_green, new_red_unused));
  _mm256_storeu_si256(halves + 1, _mm256_unpackhi_epi16(new_blue_green, new_red_unused));
}

TARNWELL_AVX2 int RotateBlocks(std::uint8_t* pixels, int count, const HueTurn& turn) {
  int done = 0;
  for (; done + kLanes <= count; done += kLanes) RotateBlock(pixels + done * kBytesPerPixel, turn);
  return done;
}

#endif

}  // namespace

void RotateHueOfRow(MutablePixelView pixels, int y, int degrees, Instructions instructions) {
  // A preset's text may ask for more than a turn; the remainder of a negative number is negative.
  const int turned = (degrees % 360 + 360) % 360;
  const HueTurn turn = {turned / 60, turned % 60};
  int x = 0;
#ifdef TARNWELL_AVX2
  if (instructions == Instructions::kAvx2) x = RotateBlocks(pixels.at(0, y), pixels.width, turn);
#else
  static_cast<void>(instructions);
#endif
  for (; x < pixels.width; ++x) RotatePixel(pixels.at(x, y), turn);
}

}  // namespace tarnwell
