#include "engine/quiet_pixels.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "engine/avx2.h"

namespace tarnwell {
namespace {

constexpr int kLanesPerVector = 16;

template <typename Count>
[[gnu::always_inline]] inline bool MayMoveIn(const QuietPixels::Centres<Count>& centres,
                                             const QuietPixels::Bounds& bounds,
                                             const QuietPixels::Shape& shape, std::int32_t most) {
  for (const Count* centre : centres) {
    std::int32_t up = 0, down = 0;
    const std::int16_t* factors = bounds.factors.data();
    for (int a = 1; a <= bounds.rows; ++a, factors += shape.lanes) {
      const Count* above = centre + a * shape.step;
      const Count* below = centre - a * shape.step;
      for (int i = 0; i < shape.lanes; ++i) {
        up += static_cast<std::int32_t>(above[i]) * factors[i];
        down += static_cast<std::int32_t>(below[i]) * factors[i];
      }
    }
    if (up > most || down > most) return true;
  }
  return false;
}

template <typename Count>
bool MayMovePlainly(const QuietPixels::Centres<Count>& centres, const QuietPixels::Bounds& bounds,
                    const QuietPixels::Shape& shape, std::int32_t most) {
  return MayMoveIn(centres, bounds, shape, most);
}

#ifdef TARNWELL_AVX2

TARNWELL_AVX2 bool WideMayMoveAvx2(const QuietPixels::Centres<std::uint32_t>& centres,
                                   const QuietPixels::Bounds& bounds,
                                   const QuietPixels::Shape& shape, std::int32_t most) {
  return MayMoveIn(centres, bounds, shape, most);
}

TARNWELL_AVX2 inline __m256i Load(const void* from) {
  return _mm256_loadu_si256(static_cast<const __m256i*>(from));
}

TARNWELL_AVX2 bool NarrowMayMoveAvx2(const QuietPixels::Centres<std::uint16_t>& centres,
                                     const QuietPixels::Bounds& bounds,
                                     const QuietPixels::Shape& shape, std::int32_t most) {
  __m256i moves[3];
  for (int channel = 0; channel < 3; ++channel) {
    __m256i up = _mm256_setzero_si256(), down = up;
    const std::int16_t* factors = bounds.factors.data();
    const std::uint16_t* above = centres[channel];
    const std::uint16_t* below = centres[channel];
    for (int a = 1; a <= bounds.rows; ++a) {
      above += shape.step;
      below -= shape.step;
      for (int i = 0; i < shape.lanes; i += kLanesPerVector, factors += kLanesPerVector) {
        const __m256i factor = Load(factors);
        up = _mm256_add_epi32(up, _mm256_madd_epi16(Load(above + i), factor));
        down = _mm256_add_epi32(down, _mm256_madd_epi16(Load(below + i), factor));
      }
    }
    moves[channel] = _mm256_hadd_epi32(up, down);
  }
  const __m256i two = _mm256_hadd_epi32(moves[0], moves[1]);
  const __m256i third = _mm256_hadd_epi32(moves[2], moves[2]);
  const __m128i sums = _mm_add_epi32(_mm256_castsi256_si128(two), _mm256_extracti128_si256(two, 1));
  const __m128i others =
      _mm_add_epi32(_mm256_castsi256_si128(third), _mm256_extracti128_si256(third, 1));
  const __m128i limit = _mm_set1_epi32(most);
  const __m128i above_limit =
      _mm_or_si128(_mm_cmpgt_epi32(sums, limit), _mm_cmpgt_epi32(others, limit));
  return _mm_movemask_epi8(above_limit) != 0;
}

#endif

// Pixels of the union of the discs around `height` pixels above each other, at most.
std::int64_t WindowArea(int radius, int height) {
  std::int64_t area = std::int64_t{height - 1} * (2 * radius + 1);
  for (int dy = -radius; dy <= radius; ++dy) area += 2 * DiscHalfWidth(radius, dy) + 1;
  return area;
}

}  // namespace

bool QuietPixels::Suits(int radius, int limit) { return limit <= kHighestLimit && radius <= 300; }

QuietPixels::QuietPixels(const PixelView& reference, const NoiseRule& rule, int radius,
                         Instructions instructions)
    : reference_(reference),
      radius_(radius),
      most_(static_cast<std::int32_t>(rule.normaliser() / 2 * kScale) - 1),
      narrow_may_move_(MayMovePlainly<std::uint16_t>),
      wide_may_move_(MayMovePlainly<std::uint32_t>) {
#ifdef TARNWELL_AVX2
  if (instructions == Instructions::kAvx2) {
    narrow_may_move_ = NarrowMayMoveAvx2;
    wide_may_move_ = WideMayMoveAvx2;
  }
#endif
  static_cast<void>(instructions);
  const int limit = rule.highest_limit();
  shape_.reach = limit - 2;
  shape_.lanes = (2 * shape_.reach + kLanesPerVector) / kLanesPerVector * kLanesPerVector;
  // The empty cells after the sums of one level serve as those before the next.
  shape_.step = 511 + std::max(shape_.reach, shape_.lanes - 1 - shape_.reach);
  shape_.first = (limit - 1) * shape_.step + shape_.reach;
  shape_.size = (256 + 2 * (limit - 1) + 1) * shape_.step;

  // Thresholds are rounded up to eighths, so that there are few of them.
  std::vector<int> table_of_eighths(8 * kHighestLimit + 1);
  bounds_.emplace_back();
  for (int sum = 0; sum <= 765; ++sum) {
    bounds_of_sum_[sum] = 0;
    if (rule.limit(sum) <= 1) continue;  // only equal colours count
    const int eighths = static_cast<int>(std::ceil(rule.threshold(sum) * 8));
    int& table = table_of_eighths[eighths];
    if (table == 0) {
      table = static_cast<int>(bounds_.size());
      Bounds& bounds = bounds_.emplace_back();
      bounds.rows = rule.limit(sum) - 1;
      bounds.factors.resize(static_cast<std::size_t>(bounds.rows) * shape_.lanes);
      for (int a = 1; a <= bounds.rows; ++a) {
        for (int m = -shape_.reach; m <= shape_.reach; ++m) {
          const double weight = std::max(1 - (a + std::abs(m)) * 8.0 / eighths, 0.0);
          bounds.factors[(a - 1) * shape_.lanes + m + shape_.reach] =
              static_cast<std::int16_t>(std::ceil(a * weight * kScale));
        }
      }
    }
    bounds_of_sum_[sum] = static_cast<std::uint8_t>(table);
  }
}

// The counts of one piece's window while it moves from left to right.
template <typename Count>
class QuietPixels::Window {
 public:
  Window(const QuietPixels& quiet, const PicturePiece& piece, Count* counts)
      : shape_(quiet.shape_), radius_(quiet.radius_), width_(quiet.reference_.width) {
    for (int channel = 0; channel < 3; ++channel) {
      counts_[channel] = counts + channel * shape_.size + shape_.first;
    }
    const PixelView& picture = quiet.reference_;
    left_ = std::max(piece.left - radius_, 0);
    top_ = std::max(piece.top - radius_, 0);
    const int right = std::min(piece.right + radius_, width_);
    const int bottom = std::min(piece.bottom + radius_, picture.height);
    // An odd number of cache lines from row to row, so that those of one column do not collide.
    row_ = static_cast<std::ptrdiff_t>((right - left_ + 15) / 16 | 1) * 64;
    pixels_.resize(static_cast<std::size_t>(bottom - top_) * row_);
    for (int y = top_; y < bottom; ++y) {
      std::memcpy(pixels_.data() + (y - top_) * row_, picture.at(left_, y),
                  static_cast<std::size_t>(right - left_) * kBytesPerPixel);
      const int beyond = std::max({piece.top - y, y - (piece.bottom - 1), 0});
      half_widths_.push_back(DiscHalfWidth(radius_, beyond));
    }
    for (std::size_t row = 0; row < half_widths_.size(); ++row) {
      const std::ptrdiff_t start = static_cast<std::ptrdiff_t>(row) * row_;
      entering_.push_back(start + (half_widths_[row] + 1) * kBytesPerPixel);
      leaving_.push_back(start - half_widths_[row] * kBytesPerPixel);
    }
  }

  const std::uint8_t* pixel(int x, int y) const { return row(y - top_) + (x - left_) * 4; }

  // Counts the whole window around column x, or takes it out again (`change` -1).
  void CountAll(int x, int change) {
    for (std::size_t i = 0; i < half_widths_.size(); ++i) {
      const int first = std::max(x - half_widths_[i], 0);
      const int last = std::min(x + half_widths_[i], width_ - 1);
      const std::uint8_t* pixel = row(static_cast<std::ptrdiff_t>(i)) + (first - left_) * 4;
      for (int column = first; column <= last; ++column, pixel += kBytesPerPixel) {
        Add(pixel, change);
      }
    }
  }

  // From column x to the next.
  void Move(int x) {
    const std::uint8_t* column = pixels_.data() + (x - left_) * kBytesPerPixel;
    const std::size_t rows = half_widths_.size();
    if (x - radius_ >= 0 && x + 1 + radius_ < width_) {
      for (std::size_t i = 0; i < rows; ++i) {
        Add(column + entering_[i], 1);
        Add(column + leaving_[i], -1);
      }
      return;
    }
    for (std::size_t i = 0; i < rows; ++i) {
      if (x + 1 + half_widths_[i] < width_) Add(column + entering_[i], 1);
      if (x - half_widths_[i] >= 0) Add(column + leaving_[i], -1);
    }
  }

  Centres<Count> CentresOf(const std::uint8_t* pixel, int sum) const {
    Centres<Count> centres;
    for (int channel = 0; channel < 3; ++channel) {
      centres[channel] = counts_[channel] + Cell(pixel[channel], sum) - shape_.reach;
    }
    return centres;
  }

 private:
  const std::uint8_t* row(std::ptrdiff_t number) const { return pixels_.data() + number * row_; }
  std::int64_t Cell(int level, int sum) const { return level * (shape_.step - 1) + sum; }
  void Add(const std::uint8_t* pixel, int change) {
    const int sum = SumOfChannels(pixel);
    for (int channel = 0; channel < 3; ++channel) {
      Count& count = counts_[channel][Cell(pixel[channel], sum)];
      count = static_cast<Count>(count + change);
    }
  }

  const Shape& shape_;
  int radius_;
  int width_;
  int left_;
  int top_;
  std::ptrdiff_t row_;
  std::vector<std::uint8_t> pixels_;
  std::vector<int> half_widths_;
  std::vector<std::ptrdiff_t> entering_, leaving_;
  std::array<Count*, 3> counts_;
};

template <typename Count>
std::vector<QuietPixels::Place> QuietPixels::Find(const PicturePiece& piece,
                                                  CountsPool<Count>& pool,
                                                  MayMove<Count> may_move) const {
  auto counts = pool.Take(3 * shape_.size);
  std::vector<Place> loud;
  Window<Count> window(*this, piece, counts.get());
  window.CountAll(piece.left, 1);
  for (int x = piece.left; x < piece.right; ++x) {
    for (int y = piece.top; y < piece.bottom; ++y) {
      const std::uint8_t* pixel = window.pixel(x, y);
      const int sum = SumOfChannels(pixel);
      const Bounds& bounds = bounds_[bounds_of_sum_[sum]];
      if (bounds.rows == 0) continue;
      if (may_move(window.CentresOf(pixel, sum), bounds, shape_, most_)) loud.push_back({x, y});
    }
    if (x + 1 < piece.right) window.Move(x);
  }
  window.CountAll(piece.right - 1, -1);
  pool.GiveBack(std::move(counts));
  return loud;
}

std::vector<QuietPixels::Place> QuietPixels::FindLoud(const PicturePiece& piece) const {
  if (WindowArea(radius_, piece.bottom - piece.top) <= 32767) {
    return Find(piece, narrow_counts_, narrow_may_move_);
  }
  return Find(piece, wide_counts_, wide_may_move_);
}

double QuietPixels::Cost(int radius, Instructions instructions) {
  const double asking = instructions == Instructions::kAvx2 ? 25 : 150;
  return asking + 0.25 * radius;
}

}  // namespace tarnwell
