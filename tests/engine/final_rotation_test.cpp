#include "engine/final_rotation.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

#include "imaging/pixel_buffer.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

// Pictures of single letters: 1 to 6 stand for the pixels of
//   1 2 3
//   4 5 6
TEST(FinalRotationTest, TurnsAsTheTableSays) {
  struct Case {
    Turn turn;
    int width;
    std::vector<int> rows;
  };
  const Case cases[] = {
      {Turn::kAnticlockwise, 2, {3, 6, 2, 5, 1, 4}}, {Turn::kClockwise, 2, {4, 1, 5, 2, 6, 3}},
      {Turn::kHalf, 3, {6, 5, 4, 3, 2, 1}},          {Turn::kUpsideDown, 3, {4, 5, 6, 1, 2, 3}},
      {Turn::kLeftRight, 3, {3, 2, 1, 6, 5, 4}},
  };
  const auto picture =
      PictureOf(3, {{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}, {5, 0, 0}, {6, 0, 0}});
  for (const Case& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.turn));
    const auto turned = TurnPixels(picture->view(), c.turn, 1);
    ASSERT_EQ(turned->width(), c.width);
    std::vector<int> rows;
    for (int y = 0; y < turned->height(); ++y) {
      for (int x = 0; x < turned->width(); ++x) rows.push_back(PixelAt(turned->view(), x, y).red);
    }
    EXPECT_EQ(rows, c.rows);
  }
}

TEST(FinalRotationTest, TurnsLargerPicturesOnAnyNumberOfThreads) {
  for (const auto& [width, height] : {std::pair{37, 50}, {16, 32}, {5, 33}, {70, 3}}) {
    const auto picture = RandomPixels(width, height, 8);
    const PixelView from = picture->view();
    for (int choice = 0; choice < kTurnCount; ++choice) {
      SCOPED_TRACE(testing::Message() << width << " x " << height << ", choice " << choice);
      const auto turned = TurnPixels(from, static_cast<Turn>(choice), 1);
      for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
          const std::pair<int, int> to[] = {{y, width - 1 - x},
                                            {height - 1 - y, x},
                                            {width - 1 - x, height - 1 - y},
                                            {x, height - 1 - y},
                                            {width - 1 - x, y}};
          const auto [to_x, to_y] = to[choice];
          ASSERT_EQ(PixelAt(turned->view(), to_x, to_y), PixelAt(from, x, y));
          ASSERT_EQ(turned->view().at(to_x, to_y)[kUnused], 0);
        }
      }
      EXPECT_TRUE(*TurnPixels(from, static_cast<Turn>(choice), 3) == *turned);
    }
  }
}

TEST(FinalRotationTest, RebuildsTheBuffersHeaderAndRefusesOtherChoices) {
  PixelBuffer buffer;
  ReplaceWorkingPixels(buffer, PictureOf(1, {{1, 2, 3}, {4, 5, 6}}));
  ASSERT_TRUE(RotateFinalImage(buffer, 0, 1));
  EXPECT_EQ(buffer.header, HeaderFor(2, 1));
  EXPECT_EQ(PixelAt(buffer.working->view(), 0, 0), (TestPixel{1, 2, 3}));  // the top stays left
  EXPECT_FALSE(RotateFinalImage(buffer, 5, 1));
  EXPECT_FALSE(RotateFinalImage(buffer, -1, 1));
  EXPECT_EQ(buffer.width, 2);
}

}  // namespace
}  // namespace tarnwell
