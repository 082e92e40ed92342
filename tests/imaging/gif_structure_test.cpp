#include "imaging/gif_structure.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

using namespace std::string_literals;

// A screen of 5 x 4 with two colours, a comment, and a frame of 2 x 3 at (1, 300) with 4 bytes of
// data in two sub-blocks.
const std::string kScreen = "GIF89a\5\0\4\0\x80\0\0abcdef"s;
const std::string kComment = "\x21\xFE\3xyz\0"s;
const std::string kFrame = "\x2C\1\0\x2C\1\2\0\3\0\0\2\3abc\1d\0"s;

TEST(GifStructureTest, FindsTheFirstFrameAndItsEnd) {
  const std::string first = kScreen + kComment + kFrame;
  const auto frame = FindGifFirstFrame(first + "whatever follows", "a.gif");
  ASSERT_TRUE(frame.ok()) << frame.status.message;
  EXPECT_EQ(frame->screen_width, 5);
  EXPECT_EQ(frame->screen_height, 4);
  EXPECT_EQ(frame->left, 1);
  EXPECT_EQ(frame->top, 300);
  EXPECT_EQ(frame->width, 2);
  EXPECT_EQ(frame->height, 3);
  EXPECT_EQ(frame->end, first.size());
}

TEST(GifStructureTest, EveryPrefixBreaksOff) {
  const std::string whole = kScreen + kComment + kFrame;
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const auto frame = FindGifFirstFrame(whole.substr(0, length), "a.gif");
    EXPECT_EQ(frame.status.failure, Failure::kDamaged) << length;
    EXPECT_EQ(frame.status.message, "a.gif: the file breaks off") << length;
  }
}

TEST(GifStructureTest, RefusesWhatCannotBeShown) {
  const std::string one_by_one = "\x2C\0\0\0\0\1\0\1\0\0\2\1a\0"s;
  const struct {
    const char* name;
    std::string bytes;
    Failure failure;
  } kCases[] = {
      {"no frame", kScreen + ";", Failure::kDamaged},
      {"no colours", "GIF89a\1\0\1\0\0\0\0"s + one_by_one, Failure::kDamaged},
      {"no rows", kScreen + "\x2C\0\0\0\0\1\0\0\0\0\2\1a\0"s, Failure::kDamaged},
      {"screen too wide", "GIF89a\0\x80\1\0\x80\0\0abcdef"s + one_by_one, Failure::kTooLarge},
      {"frame too high", kScreen + "\x2C\0\0\0\0\1\0\0\x80\0\2\1a\0"s, Failure::kTooLarge},
      {"too little data", kScreen + "\x2C\0\0\0\0\0\x70\0\x70\0\2\1a\0"s, Failure::kDamaged},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(FindGifFirstFrame(c.bytes, "a.gif").status.failure, c.failure) << c.name;
  }
}

TEST(GifStructureTest, AScreenWithoutASizeIsTheFrame) {
  const auto frame = FindGifFirstFrame("GIF89a\0\0\0\0\x80\0\0abcdef"s + kFrame, "a.gif");
  ASSERT_TRUE(frame.ok());
  EXPECT_EQ(frame->screen_width, 2);
  EXPECT_EQ(frame->screen_height, 3);
}

}  // namespace
}  // namespace tarnwell
