#pragma once

#include <optional>

#include "engine/noise_by_colors.h"
#include "engine/noise_by_neighbors.h"
#include "engine/noise_by_pixels.h"
#include "engine/noise_rule.h"
#include "engine/noise_settings.h"
#include "engine/processor.h"
#include "engine/quiet_pixels.h"
#include "imaging/picture_piece.h"

namespace tarnwell {

// How the sums of the noise filter are found. The result is the same.
struct NoiseWay {
  enum Sums { kColors, kNeighbors } sums = kNeighbors;
  // Whether pixels are first asked if they may change at all, and only those of pieces where many
  // may go that way, single ones by themselves.
  bool quiet_first = false;
};

// The way that is expected to be fastest for a rule and a radius.
NoiseWay FastestNoiseWay(const NoiseRule& rule, int radius, Instructions instructions);

// Smooths pixels with neighbours of nearly the same colour inside a disc.
//
// For a pixel with threshold T, each neighbour in the disc (and the picture) whose colour
// difference d is below T weighs (T - d) / T, the pixel itself 1. The pixel is blended with the
// weighted mean by weight total / N, with N = (2 x radius + 1)^2 + 1. Per channel this comes to
//   R + (A - B / T) / N    with A = sum of (R' - R), B = sum of d x (R' - R)
// over these neighbours, rounded half to even. A and B are whole numbers, so that neither the order
// of the neighbours nor the way of adding them up matters.
class NoiseFilter {
 public:
  // `reference` are the pixels before the run; they outlive the filter.
  NoiseFilter(const PixelView& reference, const NoiseSettings& settings);
  // In a way chosen by the caller; kColors and quiet_first only where they suit.
  NoiseFilter(const PixelView& reference, const NoiseSettings& settings, NoiseWay way,
              Instructions instructions);
  NoiseFilter(const NoiseFilter&) = delete;
  NoiseFilter& operator=(const NoiseFilter&) = delete;

  // The picture in pieces that one thread smooths in a few hundredths of a second each, so that a
  // run can be stopped between them: number 0 to piece_count() - 1, rows of pieces from the top.
  int piece_count() const { return across_ * down_; }
  PicturePiece piece(int number) const;

  // Smooths one piece of `target`, which holds the reference's pixels there; the unused channel
  // stays. Several threads may smooth different pieces. False, with the piece unfinished, when
  // memory does not suffice.
  bool Smooth(const PicturePiece& piece, MutablePixelView target) const;

 private:
  void SmoothAll(const PicturePiece& piece, MutablePixelView target) const;
  void SmoothLoud(const PicturePiece& piece, MutablePixelView target) const;

  PixelView reference_;
  NoiseRule rule_;
  std::optional<NoiseByColors> by_colors_;
  std::optional<NoiseByNeighbors> by_neighbors_;
  std::optional<QuietPixels> quiet_;
  std::optional<NoiseByPixels> by_pixels_;  // with quiet_
  double single_share_ = 0;  // up to this share of a piece's pixels, single ones are cheaper
  int piece_width_ = 0;
  int piece_height_ = 0;
  int across_ = 0;
  int down_ = 0;
};

}  // namespace tarnwell
