#include "engine/noise_filter.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace tarnwell {
namespace {

// Taller pieces share more of the rows above and below; longer waits before a stop.
constexpr int kTallestPiece = 32;
constexpr double kPieceNanoseconds = 3e7;
// Wider pieces have less work beside them; narrower ones keep their window's pixels in the cache.
constexpr int kQuietWidth = 512;

int PiecesFor(int side, int piece) { return (side + piece - 1) / piece; }

double CostOf(NoiseWay::Sums sums, int radius, int limit, Instructions instructions) {
  return sums == NoiseWay::kColors ? NoiseByColors::Cost(radius, limit, instructions)
                                   : NoiseByNeighbors::Cost(radius, limit, instructions);
}

}  // namespace

NoiseWay FastestNoiseWay(const NoiseRule& rule, int radius, Instructions instructions) {
  const int limit = rule.highest_limit();
  NoiseWay way;
  double cost = CostOf(NoiseWay::kNeighbors, radius, limit, instructions);
  if (NoiseByColors::Suits(radius, limit)) {
    const double by_colors = CostOf(NoiseWay::kColors, radius, limit, instructions);
    if (by_colors < cost) {
      way.sums = NoiseWay::kColors;
      cost = by_colors;
    }
  }
  way.quiet_first =
      QuietPixels::Suits(radius, limit) && QuietPixels::Cost(radius, instructions) < cost;
  return way;
}

NoiseFilter::NoiseFilter(const PixelView& reference, const NoiseSettings& settings)
    : NoiseFilter(reference, settings,
                  FastestNoiseWay(NoiseRule(settings), settings.radius, BestInstructions()),
                  BestInstructions()) {}

NoiseFilter::NoiseFilter(const PixelView& reference, const NoiseSettings& settings, NoiseWay way,
                         Instructions instructions)
    : reference_(reference), rule_(settings) {
  const int radius = settings.radius, limit = rule_.highest_limit();
  double cost = CostOf(way.sums, radius, limit, instructions);
  if (way.sums == NoiseWay::kColors) {
    by_colors_.emplace(reference_, rule_, radius, instructions);
  } else {
    by_neighbors_.emplace(reference_, rule_, radius, instructions);
  }
  if (way.quiet_first) {
    quiet_.emplace(reference_, rule_, radius, instructions);
    by_pixels_.emplace(reference_, rule_, radius, instructions);
    single_share_ = cost / NoiseByPixels::Cost(radius, instructions);
  }
  const double pixels = kPieceNanoseconds / cost;
  piece_height_ = static_cast<int>(std::clamp(pixels / reference.width, 1.0, 1.0 * kTallestPiece));
  piece_width_ = reference.width;
  if (way.quiet_first) {
    piece_height_ = kTallestPiece;
    piece_width_ = kQuietWidth;
  } else if (way.sums == NoiseWay::kNeighbors && pixels < reference.width) {
    // A row that takes too long by itself is divided, for comparing neighbours in whole vectors.
    const double vectors = std::floor(pixels / piece_height_ / kCentres);
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

void NoiseFilter::SmoothAll(const PicturePiece& piece, MutablePixelView target) const {
  if (by_colors_) {
    by_colors_->Smooth(piece, target);
  } else {
    by_neighbors_->Smooth(piece, target);
  }
}

void NoiseFilter::SmoothLoud(const PicturePiece& piece, MutablePixelView target) const {
  const std::vector<QuietPixels::Place> loud = quiet_->FindLoud(piece);
  if (loud.empty()) return;
  const double pixels = 1.0 * (piece.right - piece.left) * (piece.bottom - piece.top);
  if (static_cast<double>(loud.size()) > single_share_ * pixels) {
    SmoothAll(piece, target);
    return;
  }
  const PlanarPiece planes = by_pixels_->Planes(piece);
  for (const auto& [x, y] : loud) by_pixels_->Smooth(planes, x, y, target);
}

bool NoiseFilter::Smooth(const PicturePiece& piece, MutablePixelView target) const {
  if (rule_.highest_limit() <= 1) return true;  // only equal colours would count
  try {
    if (quiet_) {
      SmoothLoud(piece, target);
    } else {
      SmoothAll(piece, target);
    }
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

}  // namespace tarnwell
