#include "engine/noise_by_colors.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "engine/planar_piece.h"

namespace tarnwell {
namespace {

constexpr int kLanesPerVector = 16;

// With more rows, moving the window costs less per row and the fringes cost more.
constexpr int kRowsPerWindow = 4;

int LanesFor(int limit) {
  const int differences = 2 * limit - 1;
  return (differences + kLanesPerVector - 1) / kLanesPerVector * kLanesPerVector;
}

}  // namespace

NearColors::NearColors(int limit, int reach, int lanes) : limit_(limit), lanes_(lanes) {
  factors_.resize(static_cast<std::size_t>(limit) * limit * 2 * lanes);
  std::int16_t* factor = factors_.data();
  for (int e = 0; e < limit; ++e) {
    for (int step = 0; step < limit; ++step, factor += 2 * lanes) {
      for (int lane = 0; lane < lanes; ++lane) {
        const int blue = lane - reach;
        const int weight = std::max(limit - e - std::abs(blue), 0);
        const int k = step == 0 ? blue : step;
        factor[lane] = static_cast<std::int16_t>(weight > 0 ? k : 0);
        factor[lanes + lane] = static_cast<std::int16_t>(k * weight);
      }
    }
  }
}

ColorCells::ColorCells(int reach, int lanes) {
  // The empty cells after one run, row or plane serve as those before the next.
  green_step = 256 + std::max(reach, lanes - 1 - reach);
  red_step = (256 + reach) * green_step;
  first = reach * (red_step + green_step) + reach;
  nowhere = first + (255 + reach) * (red_step + green_step) + 255 + lanes;
  size = nowhere + 1;
}

// The cells of the rows that the windows of some rows reach into, column by column so that the
// window's edge lies in few pages of memory, and their planes.
class NoiseByColors::Band {
 public:
  Band(const PixelView& reference, const ColorCells& cells, const PicturePiece& piece, int radius)
      : top_(piece.top - radius),
        left_(piece.left - radius),
        height_(piece.bottom - piece.top + 2 * radius),
        cells_(static_cast<std::size_t>(piece.right - piece.left + 2 * radius + 1) * height_,
               static_cast<std::int32_t>(cells.nowhere)),
        planes_(reference, piece, radius) {
    constexpr int kColumns = 16;
    const int left = std::max(left_, 0);
    const int right = std::min(piece.right + radius, reference.width);
    const int top = std::max(top_, 0);
    const int bottom = std::min(piece.bottom + radius, reference.height);
    for (int first = left; first < right; first += kColumns) {
      const int last = std::min(first + kColumns, right);
      for (int y = top; y < bottom; ++y) {
        const std::uint8_t* pixel = reference.at(first, y);
        for (int x = first; x < last; ++x, pixel += kBytesPerPixel) {
          cells_[Position(x, y)] = cells.cell(pixel);
        }
      }
    }
  }

  // Cells of column `x`, from row `y` down.
  const std::int32_t* at(int x, int y) const { return &cells_[Position(x, y)]; }
  std::ptrdiff_t height() const { return height_; }
  const PlanarPiece& planes() const { return planes_; }

 private:
  std::size_t Position(int x, int y) const {
    return static_cast<std::size_t>(x - left_) * height_ + (y - top_);
  }

  int top_;
  int left_;
  int height_;
  std::vector<std::int32_t> cells_;
  PlanarPiece planes_;
};

NoiseByColors::NoiseByColors(const PixelView& reference, const NoiseRule& rule, int radius,
                             Instructions instructions)
    : reference_(reference),
      rule_(rule),
      radius_(radius),
      reach_(rule.highest_limit() - 1),
      lanes_(LanesFor(rule.highest_limit())),
      cells_(reach_, lanes_),
      look_ups_(ColorLookUpsFor(instructions)),
      kernel_(rule.highest_limit(), instructions) {
  for (int limit = 1; limit <= rule.highest_limit(); ++limit) {
    near_.emplace_back(limit, reach_, lanes_);
  }
  const int most = std::min(kRowsPerWindow, 2 * radius + 1);
  for (int rows = 1; rows <= most; ++rows) windows_.push_back(MakeShared(rows));
  std::int64_t area = 0;
  for (const int half_width : windows_[0].half_widths) area += 2 * half_width + 1;
  narrow_ = area <= 32767;
}

NoiseByColors::SharedWindow NoiseByColors::MakeShared(int rows) const {
  SharedWindow window;
  window.top = rows - 1 - radius_;
  for (int row = window.top; row <= radius_; ++row) {
    // The disc is the same turned by a quarter, so the farther one of the first and the last disc's
    // centre decides.
    window.half_widths.push_back(DiscHalfWidth(radius_, std::max(row, rows - 1 - row)));
  }
  window.fringes.resize(rows);
  for (int centre = 0; centre < rows; ++centre) {
    for (int dy = -radius_; dy <= radius_; ++dy) {
      const int row = centre + dy;
      const bool shared = row >= window.top && row <= radius_;
      const int inner = shared ? window.half_widths[row - window.top] : -1;
      const int half_width = DiscHalfWidth(radius_, dy);
      for (int dx = -half_width; dx <= half_width; ++dx) {
        if (std::abs(dx) > inner) window.fringes[centre].push_back({dx, dy});
      }
    }
  }
  return window;
}

// Some rows that share a window, and the counts of the colours in it.
template <typename Count>
class NoiseByColors::Rows {
 public:
  Rows(const NoiseByColors& noise, const PicturePiece& rows, const Band& band, Count* counts)
      : noise_(noise),
        rows_(rows),
        band_(band),
        counts_(counts),
        window_(noise.windows_[rows.bottom - rows.top - 1]),
        top_(rows.top + window_.top),
        fringes_(rows.bottom - rows.top),
        fringe_sums_(fringes_.size()) {
    for (std::size_t row = 0; row < window_.half_widths.size(); ++row) {
      const auto start = static_cast<std::ptrdiff_t>(row);
      entering_.push_back((window_.half_widths[row] + 1) * band.height() + start);
      leaving_.push_back(-window_.half_widths[row] * band.height() + start);
    }
    for (std::size_t row = 0; row < fringes_.size(); ++row) {
      for (const auto& step : window_.fringes[row]) fringes_[row].push_back(OffsetOf(step));
    }
  }

  // All counts are 0 before and afterwards.
  void Smooth(MutablePixelView target) {
    CountAll(rows_.left, 1);
    for (int x = rows_.left; x < rows_.right; ++x) {
      if ((x - rows_.left) % kCentres == 0) AddFringes(x);
      for (int y = rows_.top; y < rows_.bottom; ++y) SmoothPixel(x, y, target.at(x, y));
      if (x + 1 < rows_.right) Move(x);
    }
    CountAll(rows_.right - 1, -1);
  }

 private:
  std::int32_t OffsetOf(const SharedWindow::Step& step) const {
    return static_cast<std::int32_t>(step.dy * band_.planes().row() + step.dx);
  }

  // Counts the pixels of the window around column x, or takes them out again (`change` -1).
  void CountAll(int x, int change) {
    for (std::size_t row = 0; row < window_.half_widths.size(); ++row) {
      const int first = std::max(x - window_.half_widths[row], 0);
      const int last = std::min(x + window_.half_widths[row], noise_.reference_.width - 1);
      for (int column = first; column <= last; ++column) {
        Count& count = counts_[*band_.at(column, top_ + static_cast<int>(row))];
        count = static_cast<Count>(count + change);
      }
    }
  }

  // From column x to the next.
  void Move(int x) {
    const std::int32_t* column = band_.at(x, top_);
    Count* const counts = counts_;
    for (std::size_t row = 0; row < entering_.size(); ++row) {
      ++counts[column[entering_[row]]];
      --counts[column[leaving_[row]]];
    }
  }

  // The sums over the fringes of the kCentres pixels from column x on, for every row.
  void AddFringes(int x) {
    for (std::size_t row = 0; row < fringes_.size(); ++row) {
      const int y = rows_.top + static_cast<int>(row);
      const bool at_edge = IsAtEdge(x, y);
      if (at_edge) ClipFringe(x, y);
      const std::vector<std::int32_t>& offsets = at_edge ? clipped_ : fringes_[row];
      std::uint16_t limits[kCentres] = {};
      for (int i = 0; i < std::min(kCentres, rows_.right - x); ++i) {
        const int sum = SumOfChannels(noise_.reference_.at(x + i, y));
        limits[i] = static_cast<std::uint16_t>(noise_.rule_.limit(sum));
      }
      NeighborJob job;
      job.centres = band_.planes().at(x, y);
      job.plane = band_.planes().plane();
      job.offsets = offsets.data();
      job.count = static_cast<int>(offsets.size());
      job.limits = limits;
      job.at_edge = at_edge;
      fringe_sums_[row] = NeighborSums();
      noise_.kernel_.Add(job, fringe_sums_[row]);
    }
  }

  bool IsAtEdge(int x, int y) const {
    const int radius = noise_.radius_;
    return x < radius || x + kCentres + radius > noise_.reference_.width || y < radius ||
           y + radius >= noise_.reference_.height;
  }

  // Leaves out of the fringe what lies outside the picture for all kCentres pixels.
  void ClipFringe(int x, int y) {
    clipped_.clear();
    for (const auto& step : window_.fringes[y - rows_.top]) {
      if (y + step.dy < 0 || y + step.dy >= noise_.reference_.height) continue;
      if (x + kCentres + step.dx <= 0 || x + step.dx >= noise_.reference_.width) continue;
      clipped_.push_back(OffsetOf(step));
    }
  }

  void SmoothPixel(int x, int y, std::uint8_t* pixel) const {
    const int limit = noise_.rule_.limit(SumOfChannels(pixel));
    if (limit <= 1) return;
    std::int32_t sums[6];
    const Count* run = counts_ + noise_.cells_.cell(pixel) - noise_.reach_;
    const NearColors& near = noise_.near_[limit - 1];
    if constexpr (sizeof(Count) == sizeof(std::uint16_t)) {
      noise_.look_ups_.narrow(run, near, noise_.cells_, sums);
    } else {
      noise_.look_ups_.wide(run, near, noise_.cells_, sums);
    }
    const NeighborSums& fringe = fringe_sums_[y - rows_.top];
    const int lane = (x - rows_.left) % kCentres;
    NoiseSums found;
    for (int i = 0; i < 3; ++i) {
      const std::int64_t plain = std::int64_t{sums[i]} + fringe.plain[i][lane];
      const std::int64_t weighted = sums[3 + i] + fringe.weighted[i][lane];
      found.plain[i] = plain;
      found.weighted[i] = limit * plain - weighted;
    }
    noise_.rule_.Blend(found, pixel);
  }

  const NoiseByColors& noise_;
  const PicturePiece rows_;
  const Band& band_;
  Count* const counts_;
  const SharedWindow& window_;
  const int top_;  // the window's first row, in the picture
  // Cells that come in, and that leave, from a column's first cell; by row of the window.
  std::vector<std::ptrdiff_t> entering_, leaving_;
  std::vector<std::vector<std::int32_t>> fringes_;  // by row, away from the pixel
  std::vector<NeighborSums> fringe_sums_;           // by row
  std::vector<std::int32_t> clipped_;
};

template <typename Count>
void NoiseByColors::SmoothPiece(const PicturePiece& piece, CountsPool<Count>& pool,
                                MutablePixelView target) const {
  const Band band(reference_, cells_, piece, radius_);
  auto counts = pool.Take(cells_.size);
  const int most = static_cast<int>(windows_.size());
  for (int y = piece.top; y < piece.bottom; y += most) {
    const PicturePiece rows = {piece.left, y, piece.right, std::min(y + most, piece.bottom)};
    Rows<Count>(*this, rows, band, counts.get()).Smooth(target);
  }
  pool.GiveBack(std::move(counts));
}

void NoiseByColors::Smooth(const PicturePiece& piece, MutablePixelView target) const {
  if (narrow_) {
    SmoothPiece(piece, narrow_counts_, target);
  } else {
    SmoothPiece(piece, wide_counts_, target);
  }
}

bool NoiseByColors::Suits(int radius, int limit) {
  // The most that a window of one colour could add to a weighted sum.
  const double area = 3.15 * (radius + 1.0) * (radius + 1.0);
  return limit <= kHighestLimit && area * limit * limit / 4 < 2e9;
}

double NoiseByColors::Cost(int radius, int limit, Instructions instructions) {
  const int runs = 2 * limit * limit - 2 * limit + 1;
  const double per_vector = instructions == Instructions::kAvx2 ? 1.6 : 12;
  const double look_up = per_vector * runs * LanesFor(limit) / kLanesPerVector;
  const double moving = 2.6 * (2 * radius + 1) / kRowsPerWindow;
  const double fringes =
      NeighborCost(limit, instructions) * (kRowsPerWindow - 1) * (2 * radius + 1);
  return look_up + moving + fringes;
}

}  // namespace tarnwell
