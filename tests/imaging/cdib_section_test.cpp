#include "imaging/cdib_section.h"

#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

std::vector<std::uint8_t> BitsOf(const cDIBSection& section) {
  const std::uint8_t* bits = section.DIBSectionBitsPtr();
  return {bits, bits + section.BytesPerScanLine() * section.Height()};
}

// A channel of the pixel at column x, row y counted from the bottom.
int Stored(const cDIBSection& section, int x, int y, int channel) {
  return section.DIBSectionBitsPtr()[y * section.BytesPerScanLine() + x * 3 + channel];
}

TEST(CDIBSectionTest, RowsAreStoredBottomUpAndPaddedToFourBytes) {
  const int bytes_per_line[] = {4, 8, 12, 12, 16, 20, 24, 24, 28};  // widths 1 to 9
  for (int width = 1; width <= 9; ++width) {
    SCOPED_TRACE(width);
    const Picture picture = RandomPixels(width, 3);
    cDIBSection section;
    section.CreateFromPicture(picture->view());
    ASSERT_EQ(section.BytesPerScanLine(), bytes_per_line[width - 1]);

    std::vector<std::uint8_t> expected;
    for (int y = 2; y >= 0; --y) {
      for (int x = 0; x < width; ++x) {
        const std::uint8_t* pixel = picture->view().at(x, y);
        expected.insert(expected.end(), pixel, pixel + 3);
      }
      while (expected.size() % 4 != 0) expected.push_back(0);
    }
    EXPECT_EQ(BitsOf(section), expected);
  }
}

TEST(CDIBSectionTest, CreateReleasesWhatWasThereAndRefusesBadSizes) {
  const int refused[][2] = {{0, 5}, {5, 0}, {-1, 5}, {kMaxSide + 1, 1}, {1, kMaxSide + 1}};
  cDIBSection section;
  for (const auto& [width, height] : refused) {
    section.CreateFromPicture(RandomPixels(4, 4)->view());
    EXPECT_EQ(section.Resample(height, width), nullptr);
    EXPECT_FALSE(section.Create(width, height));
    EXPECT_EQ(section.DIBSectionBitsPtr(), nullptr);
    EXPECT_EQ(section.Width(), 0);
    EXPECT_EQ(section.Resample(2, 2), nullptr);
  }
}

// Rectangles of a 6 x 4 source and a 5 x 5 target: start in the source, in the target, and size.
struct CopyCase {
  const char* name;
  int source_x, source_y, target_x, target_y, width, height;
};
const CopyCase kCopies[] = {
    {"own size", 0, 0, 0, 0, -1, -1},
    {"own height", 1, 0, 0, 0, 3, -1},
    {"past the right and bottom", 4, 3, 0, 0, 100, 100},
    {"before the left and top", -2, -1, 0, 0, 4, 4},
    {"nothing", 0, 0, 0, 0, 0, 0},
    {"far outside", INT_MAX, INT_MIN, 0, 0, INT_MAX, INT_MAX},
    {"inside the target", 1, 1, 2, 3, 2, 2},
    {"over the target's edges", 0, 0, -3, 4, -1, -1},
    {"far from the target", 0, 0, INT_MIN, INT_MAX, INT_MAX, INT_MAX},
};

// The source pixel that lands on the target's pixel at (x, y), or null.
const std::uint8_t* Landing(const CopyCase& c, PixelView source, int own_width, int own_height,
                            int x, int y) {
  const long long i = static_cast<long long>(x) - c.target_x;
  const long long j = static_cast<long long>(y) - c.target_y;
  if (i < 0 || i >= (c.width < 0 ? own_width : c.width)) return nullptr;
  if (j < 0 || j >= (c.height < 0 ? own_height : c.height)) return nullptr;
  const long long source_x = c.source_x + i, source_y = c.source_y + j;
  if (source_x < 0 || source_x >= source.width) return nullptr;
  if (source_y < 0 || source_y >= source.height) return nullptr;
  return source.at(static_cast<int>(source_x), static_cast<int>(source_y));
}

TEST(CDIBSectionTest, RectanglesAreCopiedInAndPaintedOut) {
  const Picture source = RandomPixels(6, 4);
  cDIBSection painter;
  painter.CreateFromPicture(source->view());
  for (const CopyCase& c : kCopies) {
    SCOPED_TRACE(c.name);
    cDIBSection loaded;
    ASSERT_TRUE(loaded.Create(5, 5));
    loaded.LoadPictureBlt(source->view(), c.source_x, c.source_y, c.width, c.height);
    const CopyCase in = {c.name, c.source_x, c.source_y, 0, 0, c.width, c.height};
    const auto before = RandomPixels(5, 5, 9);
    PixelArray painted = *before;
    painter.PaintPicture(painted.mutable_view(), c.target_x, c.target_y, c.width, c.height,
                         c.source_x, c.source_y);
    for (int y = 0; y < 5; ++y) {
      for (int x = 0; x < 5; ++x) {
        const std::uint8_t* loads = Landing(in, source->view(), 5, 5, x, y);
        const std::uint8_t* paints = Landing(c, source->view(), 6, 4, x, y);
        const std::uint8_t* old = before->view().at(x, y);
        for (int channel = 0; channel < 3; ++channel) {
          ASSERT_EQ(Stored(loaded, x, 4 - y, channel), loads ? loads[channel] : 0);
          ASSERT_EQ(painted.view().at(x, y)[channel], (paints ? paints : old)[channel]);
        }
        ASSERT_EQ(painted.view().at(x, y)[kUnused], old[kUnused]);
      }
    }
  }
}

double HalfEven(double value) {
  const double below = std::floor(value), part = value - below;
  if (part != 0.5) return part < 0.5 ? below : below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

// One resampled channel, straight from the rule; a column or row past the last reads as 0, which
// only a side of one pixel may do, with no weight.
int NaiveResampled(const cDIBSection& section, int new_width, int new_height, int x, int y,
                   int channel) {
  const double sx = x * (static_cast<double>(section.Width() - 1) / new_width);
  const double sy = y * (static_cast<double>(section.Height() - 1) / new_height);
  const int x0 = static_cast<int>(sx), y0 = static_cast<int>(sy);
  const double fx = sx - x0, fy = sy - y0;
  const auto p = [&](int column, int row) {
    if (column >= section.Width() || row >= section.Height()) return 0;
    return Stored(section, column, row, channel);
  };
  const double left = HalfEven((1 - fy) * p(x0, y0) + fy * p(x0, y0 + 1));
  const double right = HalfEven((1 - fy) * p(x0 + 1, y0) + fy * p(x0 + 1, y0 + 1));
  return static_cast<int>(HalfEven((1 - fx) * left + fx * right));
}

TEST(CDIBSectionTest, ResampleAgreesWithTheNaiveForm) {
  std::mt19937 generator(7);
  const auto side = [&] { return static_cast<int>(generator() % 13) + 1; };
  for (int round = 0; round < 300; ++round) {
    const int width = side(), height = side(), new_width = side(), new_height = side();
    const bool same_size = width == new_width && height == new_height;
    SCOPED_TRACE(testing::Message()
                 << width << " x " << height << " to " << new_width << " x " << new_height);
    cDIBSection section;
    section.CreateFromPicture(RandomPixels(width, height, generator())->view());
    const auto resampled = section.Resample(new_height, new_width);
    ASSERT_NE(resampled, nullptr);
    for (int y = 0; y < new_height; ++y) {
      for (int x = 0; x < new_width; ++x) {
        for (int channel = 0; channel < 3; ++channel) {
          ASSERT_EQ(Stored(*resampled, x, y, channel),
                    same_size ? Stored(section, x, y, channel)
                              : NaiveResampled(section, new_width, new_height, x, y, channel));
        }
      }
    }
  }
}

}  // namespace
}  // namespace tarnwell
