#include "engine/noise_filter.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>

#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

// The filter as its rule is told, position by position.
TestPixel NaiveNoise(const PixelView& pixels, int x, int y, const NoiseSettings& settings) {
  const TestPixel centre = PixelAt(pixels, x, y);
  const double darkness = 1 - (centre.red + centre.green + centre.blue) / 765.0;
  const double threshold =
      settings.darkness_weighting ? settings.threshold * darkness * 1.25 : settings.threshold;
  if (threshold == 0) return centre;
  const int radius = settings.radius;
  long long a[3] = {0, 0, 0}, b[3] = {0, 0, 0};
  for (int dx = -radius; dx <= radius; ++dx) {
    for (int dy = -radius; dy <= radius; ++dy) {
      const bool inside_disc = dx * dx + dy * dy <= (radius + 0.5) * (radius + 0.5);
      if (!inside_disc || (dx == 0 && dy == 0) || !pixels.Contains(x + dx, y + dy)) continue;
      const TestPixel other = PixelAt(pixels, x + dx, y + dy);
      const int change[3] = {other.red - centre.red, other.green - centre.green,
                             other.blue - centre.blue};
      const int d = std::abs(change[0]) + std::abs(change[1]) + std::abs(change[2]);
      if (!(d < threshold)) continue;
      for (int i = 0; i < 3; ++i) a[i] += change[i], b[i] += d * change[i];
    }
  }
  const double n = (2.0 * radius + 1) * (2.0 * radius + 1) + 1;
  const auto blend = [&](int value, int i) {
    return static_cast<int>(std::nearbyint(
        value + (static_cast<double>(a[i]) - static_cast<double>(b[i]) / threshold) / n));
  };
  return {blend(centre.red, 0), blend(centre.green, 1), blend(centre.blue, 2)};
}

TEST(NoiseFilterTest, GivesTheSameAsTheNaiveForm) {
  const NoiseSettings settings[] = {
      {1, 7.65, false}, {1, 765, true},    {2, 100.25, false},
      {3, 30.0, true},  {4, 306.0, false}, {9, 61.2, false},
  };
  unsigned seed = 1;
  for (const NoiseSettings& s : settings) {
    for (const auto& [width, height] : {std::pair{1, 1}, {2, 9}, {17, 1}, {13, 11}, {40, 23}}) {
      SCOPED_TRACE(testing::Message() << "radius " << s.radius << ", threshold " << s.threshold
                                      << ", " << width << " x " << height);
      const auto picture = NoisyPicture(width, height, ++seed);
      const NoiseFilter filter(picture->view(), s);
      for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y) {
          const auto pixel = filter.At(x, y);
          ASSERT_EQ((TestPixel{pixel.red, pixel.green, pixel.blue}),
                    NaiveNoise(picture->view(), x, y, s))
              << "at " << x << ", " << y;
        }
      }
    }
  }
}

TEST(NoiseFilterTest, AWhitePixelUnderDarknessWeightingStays) {
  const auto picture = PictureOf(2, {{255, 255, 255}, {254, 255, 255}});
  const NoiseFilter filter(picture->view(), {1, 765, true});
  EXPECT_EQ(filter.At(0, 0).red, 255);
}

TEST(DiscTest, HalfWidths) {
  // (1.5)^2 = 2.25 takes the diagonal neighbours in; (2.5)^2 = 6.25 leaves (2, 2) out.
  EXPECT_EQ(DiscHalfWidth(1, 0), 1);
  EXPECT_EQ(DiscHalfWidth(1, 1), 1);
  EXPECT_EQ(DiscHalfWidth(2, 2), 1);
  EXPECT_EQ(DiscHalfWidth(15300, 15300), 123);
  EXPECT_EQ(DiscHalfWidth(15300, 0), 15300);
}

}  // namespace
}  // namespace tarnwell
