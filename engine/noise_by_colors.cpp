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
      add_neighbors_(NeighborKernelFor(rule.highest_limit(), instructions)) {
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

template <typename Count>
void NoiseByColors::SmoothRows(const PicturePiece& rows, const Band& band, Count* counts,
                               MutablePixelView target) const {
  const int row_count = rows.bottom - rows.top;
  const SharedWindow& window = windows_[row_count - 1];
  const int height = static_cast<int>(window.half_widths.size());
  std::vector<std::ptrdiff_t> entering(height), leaving(height);
  for (int row = 0; row < height; ++row) {
    entering[row] = (window.half_widths[row] + 1) * band.height() + row;
    leaving[row] = -window.half_widths[row] * band.height() + row;
  }
  std::vector<std::vector<std::int32_t>> fringes(row_count);
  for (int row = 0; row < row_count; ++row) {
    for (const auto& [dx, dy] : window.fringes[row]) {
      fringes[row].push_back(static_cast<std::int32_t>(dy * band.planes().row() + dx));
    }
  }

  // Counts the pixels of the window around column x, or takes them out again.
  const int top = rows.top + window.top;
  const auto count_window = [&](int x, int change) {
    for (int row = 0; row < height; ++row) {
      const int first = std::max(x - window.half_widths[row], 0);
      const int last = std::min(x + window.half_widths[row], reference_.width - 1);
      for (int column = first; column <= last; ++column) {
        Count& count = counts[*band.at(column, top + row)];
        count = static_cast<Count>(count + change);
      }
    }
  };

  std::vector<NeighborSums> fringe_sums(row_count);
  std::vector<std::int32_t> clipped;
  const auto add_fringes = [&](int x) {
    for (int row = 0; row < row_count; ++row) {
      fringe_sums[row] = NeighborSums();
      const int y = rows.top + row;
      const bool at_edge = x < radius_ || x + kCentres + radius_ > reference_.width ||
                           y < radius_ || y + radius_ >= reference_.height;
      if (at_edge) {
        clipped.clear();
        for (const auto& [dx, dy] : window.fringes[row]) {
          if (y + dy < 0 || y + dy >= reference_.height) continue;
          if (x + kCentres + dx <= 0 || x + dx >= reference_.width) continue;
          clipped.push_back(static_cast<std::int32_t>(dy * band.planes().row() + dx));
        }
      }
      const std::vector<std::int32_t>& offsets = at_edge ? clipped : fringes[row];
      std::uint16_t limits[kCentres] = {};
      for (int i = 0; i < std::min(kCentres, rows.right - x); ++i) {
        limits[i] = static_cast<std::uint16_t>(rule_.limit(SumOfChannels(reference_.at(x + i, y))));
      }
      NeighborJob job;
      job.centres = band.planes().at(x, y);
      job.plane = band.planes().plane();
      job.offsets = offsets.data();
      job.count = static_cast<int>(offsets.size());
      job.limits = limits;
      job.highest_limit = rule_.highest_limit();
      job.at_edge = at_edge;
      add_neighbors_(job, fringe_sums[row]);
    }
  };

  const auto smooth = [&](int x, int row) {
    std::uint8_t* pixel = target.at(x, rows.top + row);
    const int limit = rule_.limit(SumOfChannels(pixel));
    if (limit <= 1) return;
    std::int32_t sums[6];
    const Count* run = counts + cells_.cell(pixel) - reach_;
    if constexpr (sizeof(Count) == sizeof(std::uint16_t)) {
      look_ups_.narrow(run, near_[limit - 1], cells_, sums);
    } else {
      look_ups_.wide(run, near_[limit - 1], cells_, sums);
    }
    const NeighborSums& fringe = fringe_sums[row];
    const int lane = (x - rows.left) % kCentres;
    NoiseSums found;
    for (int i = 0; i < 3; ++i) {
      const std::int64_t plain = std::int64_t{sums[i]} + fringe.plain[i][lane];
      const std::int64_t weighted = sums[3 + i] + fringe.weighted[i][lane];
      found.plain[i] = plain;
      found.weighted[i] = limit * plain - weighted;
    }
    rule_.Blend(found, pixel);
  };

  count_window(rows.left, 1);
  for (int x = rows.left; x < rows.right; ++x) {
    if ((x - rows.left) % kCentres == 0) add_fringes(x);
    for (int row = 0; row < row_count; ++row) smooth(x, row);
    if (x + 1 == rows.right) break;
    const std::int32_t* column = band.at(x, top);
    for (int row = 0; row < height; ++row) {
      ++counts[column[entering[row]]];
      --counts[column[leaving[row]]];
    }
  }
  count_window(rows.right - 1, -1);
}

template <typename Count>
void NoiseByColors::SmoothPiece(const PicturePiece& piece, CountsPool<Count>& pool,
                                MutablePixelView target) const {
  const Band band(reference_, cells_, piece, radius_);
  auto counts = pool.Take(cells_.size);
  const int most = static_cast<int>(windows_.size());
  for (int y = piece.top; y < piece.bottom; y += most) {
    const PicturePiece rows = {piece.left, y, piece.right, std::min(y + most, piece.bottom)};
    SmoothRows(rows, band, counts.get(), target);
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
