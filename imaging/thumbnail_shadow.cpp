// The preview's shadow. The light comes from the upper left: a deep band falls to the right of the
// thumbnail and below it, a shallow one lines its left and top edges.
//
//        ..ttttttttttt
//       l+------------+
//       l|            |r      t, l  2 pixels deep, barely darker than the background
//       l|  thumbnail |rr     r, b  9 pixels deep, fading outwards
//       .|            |rrr
//        +------------+rr#
//          bbbbbbbbbbbbbb#    #     both deep bands run through the corner and fade both ways,
//            bbbbbbbbb ####         so that it comes out round
//
// A band row is a line of pixels along the edge; row 0 touches the thumbnail.
#include <algorithm>
#include <cmath>

#include "imaging/thumbnail.h"

namespace tarnwell {
namespace {

constexpr int kDeepRows = 9;
constexpr int kFadeOut = 9;  // pixels at the end of a band row

struct BandKind {
  int rows;
  double darkest;     // base factor at the thumbnail's edge
  double fade_in;     // pixels over which a band row reaches its strength, about
  int shift_per_row;  // each row starts this many pixels after the one before
};
constexpr BandKind kDeep = {kDeepRows, 0.66, 10, 1};
constexpr BandKind kShallowTop = {2, 0.9, 8, 0};
constexpr BandKind kShallowLeft = {2, 0.9, 4, 0};

// The factor of the pixel in band row `row` at `along`, where the edge's band reaches from `begin`
// to before `end`; 1 outside the band.
double BandFactor(const BandKind& band, int row, int along, int begin, int end) {
  if (row < 0 || row >= band.rows) return 1;
  const int from_start = along - begin - row * band.shift_per_row;
  const int to_end = end - along;
  if (from_start < 0 || to_end <= 0) return 1;
  const double base = static_cast<double>(row) / band.rows * (1 - band.darkest) + band.darkest;
  const double fade_in = from_start / band.fade_in + 0.25;
  const double fade_out = static_cast<double>(to_end) / kFadeOut;
  const double t = std::min({fade_in, fade_out, 1.0});
  return (1 - t) * (1 - base) + base;
}

struct Rectangle {
  int left, top, right, bottom;  // right and bottom are the first column and row outside

  bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
};

// The shadow's factor at a pixel outside the thumbnail. Where bands meet, the darker one counts, so
// that the corner is no darker than the edges.
double ShadowFactor(const Rectangle& thumb, int x, int y) {
  // A band ends beyond the corner by the other band's depth, but inside the container.
  const int end_x = std::min(thumb.right + kDeepRows, kThumbnailSide);
  const int end_y = std::min(thumb.bottom + kDeepRows, kThumbnailSide);
  double factor = 1;
  if (thumb.right - thumb.left < kThumbnailSide) {
    factor = std::min(factor, BandFactor(kDeep, x - thumb.right, y, thumb.top + 1, end_y));
    factor =
        std::min(factor, BandFactor(kShallowLeft, thumb.left - 1 - x, y, thumb.top, thumb.bottom));
  }
  if (thumb.bottom - thumb.top < kThumbnailSide) {
    factor = std::min(factor, BandFactor(kDeep, y - thumb.bottom, x, thumb.left + 1, end_x));
    factor =
        std::min(factor, BandFactor(kShallowTop, thumb.top - 1 - y, x, thumb.left, thumb.right));
  }
  return factor;
}

}  // namespace

void DarkenShadow(MutablePixelView container, PictureSize size) {
  // A thumbnail that stands half a pixel off is drawn at the whole pixel before.
  const int left = (kThumbnailSide - size.width) / 2;
  const int top = (kThumbnailSide - size.height) / 2;
  const Rectangle thumb = {left, top, left + size.width, top + size.height};
  const int first_x = std::max(thumb.left - kShallowLeft.rows, 0);
  const int first_y = std::max(thumb.top - kShallowTop.rows, 0);
  for (int y = first_y; y < std::min(thumb.bottom + kDeepRows, container.height); ++y) {
    for (int x = first_x; x < std::min(thumb.right + kDeepRows, container.width); ++x) {
      if (thumb.Contains(x, y)) continue;
      const double factor = ShadowFactor(thumb, x, y);
      std::uint8_t* pixel = container.at(x, y);
      for (const int channel : {kBlue, kGreen, kRed}) {
        pixel[channel] = static_cast<std::uint8_t>(std::nearbyint(pixel[channel] * factor));
      }
    }
  }
}

}  // namespace tarnwell
