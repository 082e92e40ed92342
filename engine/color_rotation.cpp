#include "engine/color_rotation.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace tarnwell {
namespace {

// Pixels that are worked on together, their channels in arrays of their own so that compilers turn
// the loops into vectors.
constexpr int kBlock = 64;

// Where a channel's byte is in a pixel that was read as a number.
constexpr int Shift(Channel channel) {
  return std::endian::native == std::endian::little ? 8 * channel : 24 - 8 * channel;
}

// A turn of 0 to 359 degrees.
struct HueTurn {
  std::int16_t sixths;   // whole ones, 0 to 5
  std::int16_t degrees;  // what remains, 0 to 59
};

// So many channels at once; a comparison gives all bits or none per lane.
constexpr int kLanes = 8;
typedef std::int16_t Lanes __attribute__((vector_size(2 * kLanes)));
typedef std::uint16_t Bits __attribute__((vector_size(2 * kLanes)));

inline Lanes Select(Lanes mask, Lanes yes, Lanes no) { return (yes & mask) | (no & ~mask); }

// numerator / 60 rounded half to even, for 0 to 60 x 255.
inline Lanes SixtiethsRounded(Lanes numerator) {
  // 17 / 256 is a little less than 1 / 15: at most one too few.
  const auto quarter = reinterpret_cast<Bits>(numerator >> 2);
  auto whole = reinterpret_cast<Lanes>(quarter * 17 >> 8);
  Lanes rest = numerator - 60 * whole;
  const Lanes more = rest >= 60;
  whole -= more;
  rest -= more & 60;
  return whole - (rest + (whole & 1) > 30);
}

// Hues are told as a sixth of the circle (0 from red to yellow, 1 from yellow to green, ...) and
// the degrees into it times the spread, max - min: a whole number of at most 60 x 255. With a turn
// added it still fits 16 bits.
inline void RotateLanes(Lanes& b, Lanes& g, Lanes& r, const HueTurn& turn) {
  const Lanes rg_max = Select(r > g, r, g), rg_min = Select(r > g, g, r);
  const Lanes max = Select(rg_max > b, rg_max, b), min = Select(rg_min < b, rg_min, b);
  const Lanes spread = max - min;
  // How far the hue is beyond, or before, that of the highest channel; in parts of the spread.
  const Lanes is_red = max == r, is_green = max == g;
  const Lanes beyond = Select(is_red, g - b, Select(is_green, b - r, r - g));
  const Lanes highest = ~is_red & (4 - (is_green & 2));
  const Lanes before = beyond < 0;
  const Lanes degrees = 60 * (beyond + (before & spread)) + turn.degrees * spread;
  // A hue at the end of its sixth is at the start of the next. Sixth -1 stands for 5, 6 for 0.
  const Lanes full = 60 * spread;
  const Lanes next = degrees >= full;
  const Lanes into = degrees - (next & full);
  Lanes sixth = highest + turn.sixths + before - next;
  sixth += (sixth < 0) & 6;
  sixth -= (sixth >= 6) & 6;

  // In an even sixth the middle channel rises from min to max, in an odd one it falls.
  const Lanes falls = (sixth & 1) == 1;
  const Lanes middle = SixtiethsRounded(Select(falls, 60 * max - into, 60 * min + into));
  r = Select((sixth == 0) | (sixth == 5), max, Select((sixth == 1) | (sixth == 4), middle, min));
  g = Select((sixth == 1) | (sixth == 2), max, Select((sixth == 0) | (sixth == 3), middle, min));
  b = Select((sixth == 3) | (sixth == 4), max, Select((sixth == 2) | (sixth == 5), middle, min));
}

void RotateBlock(std::uint8_t* pixels, const HueTurn& turn) {
  std::uint32_t packed[kBlock];
  alignas(Lanes) std::int16_t blue[kBlock], green[kBlock], red[kBlock];
  std::memcpy(packed, pixels, sizeof(packed));
  for (int i = 0; i < kBlock; ++i) {
    blue[i] = static_cast<std::int16_t>(packed[i] >> Shift(kBlue) & 255);
    green[i] = static_cast<std::int16_t>(packed[i] >> Shift(kGreen) & 255);
    red[i] = static_cast<std::int16_t>(packed[i] >> Shift(kRed) & 255);
  }
  for (int i = 0; i < kBlock; i += kLanes) {
    Lanes b, g, r;
    std::memcpy(&b, blue + i, sizeof(b));
    std::memcpy(&g, green + i, sizeof(g));
    std::memcpy(&r, red + i, sizeof(r));
    RotateLanes(b, g, r, turn);
    std::memcpy(blue + i, &b, sizeof(b));
    std::memcpy(green + i, &g, sizeof(g));
    std::memcpy(red + i, &r, sizeof(r));
  }
  for (int i = 0; i < kBlock; ++i) {
    packed[i] = (packed[i] & 255u << Shift(kUnused)) |
                static_cast<std::uint32_t>(blue[i]) << Shift(kBlue) |
                static_cast<std::uint32_t>(green[i]) << Shift(kGreen) |
                static_cast<std::uint32_t>(red[i]) << Shift(kRed);
  }
  std::memcpy(pixels, packed, sizeof(packed));
}

}  // namespace

void RotateHueOfRow(MutablePixelView pixels, int y, int degrees) {
  // A preset's text may ask for more than a turn; the remainder of a negative number is negative.
  const int turned = (degrees % 360 + 360) % 360;
  const HueTurn turn = {static_cast<std::int16_t>(turned / 60),
                        static_cast<std::int16_t>(turned % 60)};
  int x = 0;
  for (; x + kBlock <= pixels.width; x += kBlock) RotateBlock(pixels.at(x, y), turn);
  if (x == pixels.width) return;
  std::uint8_t rest[kBlock * kBytesPerPixel] = {};
  const std::size_t bytes = static_cast<std::size_t>(pixels.width - x) * kBytesPerPixel;
  std::memcpy(rest, pixels.at(x, y), bytes);
  RotateBlock(rest, turn);
  std::memcpy(pixels.at(x, y), rest, bytes);
}

}  // namespace tarnwell
