#include "engine/rounding.h"

#include <gtest/gtest.h>
#include <limits>

namespace tarnwell {
namespace {

TEST(RoundIntoTest, RoundsHalfToEvenWithinSixteenBits) {
  struct Case {
    double value;
    bool fits;
    int rounded;
  };
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const Case cases[] = {
      {0.5, true, 0},
      {1.5, true, 2},
      {2.5, true, 2},
      {-0.5, true, 0},
      {-1.5, true, -2},
      {2.4999999999999996, true, 2},
      {2.5000000000000004, true, 3},
      {32767.0, true, 32767},
      {32767.499999999996, true, 32767},
      {32767.5, false, 0},
      {-32768.5, true, -32768},
      {-32768.500000000004, false, 0},
      {1e300, false, 0},
      {-1e300, false, 0},
      {kInfinity, false, 0},
      {-kInfinity, false, 0},
      {std::numeric_limits<double>::quiet_NaN(), false, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.value);
    std::int16_t target = 77;
    EXPECT_EQ(RoundInto(target, c.value), c.fits);
    EXPECT_EQ(target, c.fits ? c.rounded : 77);
  }
}

}  // namespace
}  // namespace tarnwell
