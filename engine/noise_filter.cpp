#include "engine/noise_filter.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace tarnwell {
namespace {

// Taller pieces share more of the rows above and below; longer waits before a stop.
constexpr int kTallestPiece = 32;
constexpr double kPieceNanoseconds = 3e7;

int PiecesFor(int side, int piece) { return (side + piece - 1) / piece; }

}  // namespace

NoiseWay FasterNoiseWay(const NoiseRule& rule, int radius, Instructions instructions) {
  const int limit = rule.highest_limit();
  if (!NoiseByColors::Suits(radius, limit)) return NoiseWay::kNeighbors;
  const bool colors = NoiseByColors::Cost(radius, limit, instructions) <
                      NoiseByNeighbors::Cost(radius, limit, instructions);
  return colors ? NoiseWay::kColors : NoiseWay::kNeighbors;
}

NoiseFilter::NoiseFilter(const PixelView& reference, const NoiseSettings& settings)
    : NoiseFilter(reference, settings,
                  FasterNoiseWay(NoiseRule(settings), settings.radius, BestInstructions()),
                  BestInstructions()) {}

NoiseFilter::NoiseFilter(const PixelView& reference, const NoiseSettings& settings, NoiseWay way,
                         Instructions instructions)
    : reference_(reference), rule_(settings) {
  const int limit = rule_.highest_limit();
  double cost;
  if (way == NoiseWay::kColors) {
    by_colors_.emplace(reference_, rule_, settings.radius, instructions);
    cost = NoiseByColors::Cost(settings.radius, limit, instructions);
  } else {
    by_neighbors_.emplace(reference_, rule_, settings.radius, instructions);
    cost = NoiseByNeighbors::Cost(settings.radius, limit, instructions);
  }
  const double pixels = kPieceNanoseconds / cost;
  piece_height_ = static_cast<int>(std::clamp(pixels / reference.width, 1.0, 1.0 * kTallestPiece));
  // A row that takes too long by itself is divided, for comparing neighbours in whole vectors.
  const double vectors = std::floor(pixels / piece_height_ / kCentres);
  piece_width_ = reference.width;
  if (way == NoiseWay::kNeighbors && pixels < reference.width) {
    piece_width_ = static_cast<int>(std::max(vectors, 1.0)) * kCentres;
  }
  across_ = PiecesFor(reference.width, piece_width_);
  down_ = PiecesFor(reference.height, piece_height_);
}

PicturePiece NoiseFilter::piece(int number) const {
  PicturePiece piece;
  piece.left = number % across_ * piece_width_;
  piece.top = number / across_ * piece_height_;
  piece.right = std::min(piece.left + piece_width_, reference_.width);
  piece.bottom = std::min(piece.top + piece_height_, reference_.height);
  return piece;
}

bool NoiseFilter::Smooth(const PicturePiece& piece, MutablePixelView target) const {
  if (rule_.highest_limit() <= 1) return true;  // only equal colours would count
  try {
    if (by_colors_) {
      by_colors_->Smooth(piece, target);
    } else {
      by_neighbors_->Smooth(piece, target);
    }
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

}  // namespace tarnwell
