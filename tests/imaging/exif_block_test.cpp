#include "imaging/exif_block.h"

#include <gtest/gtest.h>

#include "tests/support/exif_builder.h"

namespace tarnwell {
namespace {

// A thumbnail of `size` bytes, told apart by `mark`.
EmbeddedThumbnail ThumbnailOf(std::size_t size, char mark) {
  return {"\xFF\xD8" + std::string(size - 2, mark), 12, 34};
}

ThumbnailMaker Making(std::size_t size) {
  return [size](int, std::size_t most) {
    return size <= most ? ThumbnailOf(size, 'n') : EmbeddedThumbnail();
  };
}

// How many bytes of two texts of the same length differ.
int Differing(const std::string& a, const std::string& b) {
  EXPECT_EQ(a.size(), b.size());
  int differing = 0;
  for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) differing += a[i] != b[i];
  return differing;
}

TEST(ExifBlock, OnlyOrientationAndSizeChange) {
  for (const bool big_endian : {false, true}) {
    const std::string before = MakeExif({.big_endian = big_endian,
                                         .orientation = 6,
                                         .width = 0x1111,
                                         .height = 0x2222,
                                         .place = true});
    auto exif = ExifBlock::Parse(before);
    ASSERT_TRUE(exif);
    EXPECT_EQ(exif->Orientation(), 6);
    exif->SetUpright();
    exif->SetPixelSize(0x3333, 0x4444);
    EXPECT_EQ(Differing(before, exif->content()), 1 + 2 + 2);
    EXPECT_EQ(exif->content(), MakeExif({.big_endian = big_endian,
                                         .orientation = 1,
                                         .width = 0x3333,
                                         .height = 0x4444,
                                         .place = true}));
  }
}

TEST(ExifBlock, LeavesThePlaceOutAndMovesNothing) {
  const std::string before = MakeExif({.place = true, .thumbnail = "\xFF\xD8thumb"});
  auto exif = ExifBlock::Parse(before);
  ASSERT_TRUE(exif && exif->LeavePlaceOut());
  const std::string& after = exif->content();
  EXPECT_EQ(after.size(), before.size());
  EXPECT_EQ(after.find(kPlaceText), after.npos);
  EXPECT_EQ(after.find(kMakerNote), after.npos) << "some tell the place in it";
  EXPECT_EQ(after.find("\xFF\xD8thumb"), before.find("\xFF\xD8thumb"));
  const auto again = ReadExifLayout(std::string_view(after).substr(6));
  ASSERT_TRUE(again);
  EXPECT_FALSE(again->place);
  EXPECT_TRUE(again->camera && again->thumbnail);
  EXPECT_EQ(again->main.entries.size(), 3u);
}

TEST(ExifBlock, AThumbnailGoesWhereItFits) {
  const std::string old(100, 'o');
  struct Case {
    std::size_t size;
    std::string behind;
    bool in_place;
    bool at_all;
  };
  // The largest block leaves 65527 bytes for everything.
  const Case cases[] = {
      {60, "", true, true},       {100, "tail", true, true},
      {500, "", true, true},  // the old one is the last, and makes room at its own place
      {500, "tail", false, true}, {500, std::string(64900, 't'), false, false},
  };
  for (const Case& c : cases) {
    auto exif = ExifBlock::Parse(MakeExif({.thumbnail = "\xFF\xD8" + old, .behind = c.behind}));
    ASSERT_TRUE(exif);
    const std::size_t old_at = exif->content().find(old) - 2;
    exif->ReplaceThumbnail(Making(c.size));
    const std::string& after = exif->content();
    const std::size_t at = after.find(ThumbnailOf(c.size, 'n').jpeg);
    EXPECT_EQ(at != after.npos, c.at_all) << c.size;
    EXPECT_EQ(at == old_at, c.in_place) << c.size;
    EXPECT_EQ(after.find("oooo"), after.npos) << "nothing of the old one is left";
    EXPECT_NE(after.find(c.behind), after.npos);
    EXPECT_NE(after.find(kMakerNote), after.npos);
    const auto layout = ReadExifLayout(std::string_view(after).substr(6));
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->thumbnail.has_value(), c.at_all);
  }
}

TEST(ExifBlock, WithoutAThumbnailNoneIsMade) {
  const std::string before = MakeExif({});
  auto exif = ExifBlock::Parse(before);
  exif->ReplaceThumbnail([](int, std::size_t) {
    ADD_FAILURE();
    return EmbeddedThumbnail();
  });
  EXPECT_EQ(exif->content(), before);
}

// Offsets here are those of the little-endian block without a place: the main directory at 8, its
// entries at 10, 22 (text) and 34 (link to the camera), the link to the thumbnail at 46.
TEST(ExifBlock, DamagedStructuresAreNoBlock) {
  struct Case {
    std::size_t at;
    std::uint8_t byte;
    const char* what;
  };
  const Case cases[] = {
      {2, 43, "another number than 42"},
      {4, 4, "the main directory inside the header"},
      {5, 0xFF, "the main directory behind the end"},
      {9, 0xFF, "more entries than the block has bytes"},
      {29, 0xFF, "a text of 4 billion bytes"},
      {33, 0x7F, "a text far behind the end"},
      {42, 8, "the camera's directory is the main one"},
      {42, 20, "the camera's directory lies across the main one"},
      {45, 0x7F, "the camera's directory far behind the end"},
  };
  const std::string sound = MakeExif({});
  ASSERT_TRUE(ExifBlock::Parse(sound));
  for (const Case& c : cases) {
    std::string damaged = sound;
    damaged[6 + c.at] = static_cast<char>(c.byte);
    if (c.at == 42) damaged[6 + 43] = 0;
    EXPECT_FALSE(ExifBlock::Parse(damaged)) << c.what;
  }
  for (std::size_t size = 0; size < 14; ++size) {
    EXPECT_FALSE(ExifBlock::Parse(sound.substr(0, size))) << size;
  }
}

TEST(ExifBlock, ADamagedThumbnailAloneIsTakenOff) {
  const std::string sound = MakeExif({.thumbnail = "\xFF\xD8thumb"});
  const std::size_t length = sound.find("\xFF\xD8thumb") - 4 - 12;  // the last entry
  struct Case {
    std::size_t at;
    std::uint8_t low, high;
    const char* what;
  };
  const Case cases[] = {{6 + 46, 8, 0, "its directory is the main one"},
                        {6 + 46, 20, 0, "its directory lies across the main one"},
                        {6 + 46, 0xFF, 0x7F, "its directory lies behind the end"},
                        {length + 2, 1, 0, "its length is a byte, and the new one may be longer"}};
  for (const Case& c : cases) {
    std::string damaged = sound;
    damaged[c.at] = static_cast<char>(c.low);
    damaged[c.at + 1] = static_cast<char>(c.high);
    auto exif = ExifBlock::Parse(damaged);
    ASSERT_TRUE(exif) << c.what;
    exif->ReplaceThumbnail(Making(300));
    EXPECT_EQ(exif->content().substr(6 + 46, 4), std::string(4, '\0')) << c.what;
  }
}

}  // namespace
}  // namespace tarnwell
