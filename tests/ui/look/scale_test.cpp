#include "ui/look/scale.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

TEST(Scale, RoundsToTheNearestPixel) {
  struct Row {
    int dpi, size, pixels;
  };
  for (const Row& row : std::initializer_list<Row>{{96, 8, 8},
                                                   {144, 8, 12},
                                                   {144, 1, 2},    // 1.5
                                                   {144, -1, -2},  // away from zero
                                                   {120, 2, 3},    // 2.5
                                                   {120, 1, 1},    // 1.25
                                                   {192, 320, 640}}) {
    EXPECT_EQ(Scale{row.dpi}.Px(row.size), row.pixels) << row.size << " at " << row.dpi;
  }
}

TEST(Scale, IsForcedByAPercentageOnly) {
  struct Row {
    const char* text;
    int dpi;
  };
  for (const Row& row : std::initializer_list<Row>{{"100", 96},
                                                   {"150", 144},
                                                   {"400", 384},
                                                   {"", 120},
                                                   {"99", 120},
                                                   {"401", 120},
                                                   {"150%", 120},
                                                   {"x", 120},
                                                   {"99999999999", 120}}) {
    EXPECT_EQ(ForcedScale(row.text, {120}).dpi, row.dpi) << row.text;
  }
}

}  // namespace
}  // namespace tarnwell
