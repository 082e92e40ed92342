#include "imaging/bmp_file.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/bmp_builder.h"

namespace tarnwell {
namespace {

using std::string_literals::operator""s;

using Bgr = std::array<std::uint8_t, 3>;
using ColourAt = std::function<Bgr(int x, int y)>;

// Checks size and every byte; the unused channel must be 0.
void ExpectPicture(const Result<Picture>& decoded, int width, int height, const ColourAt& colour) {
  ASSERT_TRUE(decoded.ok()) << decoded.status.message;
  const PixelView view = (*decoded)->view();
  ASSERT_EQ(view.width, width);
  ASSERT_EQ(view.height, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const Bgr want = colour(x, y);
      const std::vector<int> expected = {want[0], want[1], want[2], 0};
      const std::uint8_t* at = view.at(x, y);
      ASSERT_EQ((std::vector<int>{at[0], at[1], at[2], at[3]}), expected)
          << "column " << x << ", row " << y;
    }
  }
}

std::vector<Bgr> Colours(int count) {
  std::vector<Bgr> colours;
  for (int i = 0; i < count; ++i) {
    colours.push_back({static_cast<std::uint8_t>(i * 7 + 1), static_cast<std::uint8_t>(255 - i),
                       static_cast<std::uint8_t>(i ^ 0x5a)});
  }
  return colours;
}

std::uint32_t Noise(int x, int y, std::uint32_t salt = 0) {
  std::uint32_t n = (static_cast<std::uint32_t>(x) * 73856093u) ^
                    (static_cast<std::uint32_t>(y) * 19349663u) ^ (salt * 83492791u + 0x9e3779b9u);
  n = (n ^ (n >> 15)) * 0x2c1b3c6du;
  return n ^ (n >> 13);
}

using Masks = std::array<std::uint32_t, 4>;  // red, green, blue, alpha

// What a pixel stands for whose channels lie where the masks say.
Bgr Masked(std::uint32_t pixel, const Masks& masks) {
  const auto channel = [pixel](std::uint32_t mask) -> std::uint8_t {
    if (mask == 0) return 0;
    const std::uint32_t lowest_bit = mask & (~mask + 1);
    return static_cast<std::uint8_t>(
        std::lround(255.0 * ((pixel & mask) / lowest_bit) / (mask / lowest_bit)));
  };
  return {channel(masks[2]), channel(masks[1]), channel(masks[0])};
}

TEST(BmpReaderTest, ReadsEveryDepthUnderEveryHeaderInEitherOrderOfRows) {
  constexpr int kRows = 3;
  for (const std::uint32_t header_size : {12, 16, 40, 52, 56, 64, 108, 124}) {
    for (const int bits : {1, 4, 8, 16, 24, 32}) {
      for (int width = 1; width <= 9; ++width) {
        const bool top_down = width % 2 == 0 && header_size != 12;  // its height has no sign
        SCOPED_TRACE(testing::Message() << header_size << ", " << bits << ", " << width);
        BmpLayout layout{.header_size = header_size, .width = width};
        layout.height = top_down ? -kRows : kRows;
        layout.bits = static_cast<std::uint16_t>(bits);
        layout.masks = {0xf, 0xf0, 0xf00, 0};  // not in force without the compression for masks
        if (bits <= 8) layout.palette = Colours(1 << bits);
        const auto value = [&](int x, int y) { return Noise(x, y) % (1ull << bits); };
        layout.data = StoredRows(width, kRows, bits, top_down, value);
        ExpectPicture(DecodeBmp(BuildBmp(layout), "a.bmp"), width, kRows, [&](int x, int y) {
          const auto pixel = static_cast<std::uint32_t>(value(x, y));
          if (bits <= 8) return layout.palette[pixel];
          // Blue lowest, 5 bits each at 16 bits, 8 bits each above.
          return Masked(pixel,
                        bits == 16 ? Masks{0x7c00, 0x3e0, 0x1f} : Masks{0xff0000, 0xff00, 0xff});
        });
      }
    }
  }
}

TEST(BmpReaderTest, ReadsMasksOfAnyWidthAndOrder) {
  const struct {
    const char* name;
    int bits;
    Masks masks;
  } kCases[] = {
      {"5-6-5", 16, {0xf800, 0x07e0, 0x001f, 0}},
      {"16 bits of green", 16, {0, 0xffff, 0, 0}},
      {"8-8-8-8", 32, {0xff0000, 0xff00, 0xff, 0xff000000}},
      {"red lowest", 32, {0xff, 0xff00, 0xff0000, 0}},
      {"10-10-10", 32, {0x3ff00000, 0xffc00, 0x3ff, 0xc0000000}},
      {"one bit", 32, {0x80000000, 0x00010000, 0x1, 0}},
      {"9 and 12 bits", 32, {0x1ff, 0x1ffe00, 0xff800000, 0}},
      {"all 32 bits grey", 32, {0xffffffff, 0xffffffff, 0xffffffff, 0}},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.name);
    for (const std::uint32_t header_size : {40u, 52u, 56u, 108u, 124u}) {
      for (const std::uint32_t compression : {3u, 6u}) {
        SCOPED_TRACE(testing::Message()
                     << "header " << header_size << ", compression " << compression);
        BmpLayout layout{.header_size = header_size, .width = 21, .height = 4};
        layout.bits = static_cast<std::uint16_t>(row.bits);
        layout.compression = compression;
        layout.masks = row.masks;
        const auto value = [](int x, int y) { return Noise(x, y); };
        layout.data = StoredRows(21, 4, row.bits, false, value);
        ExpectPicture(DecodeBmp(BuildBmp(layout), "a.bmp"), 21, 4,
                      [&](int x, int y) { return Masked(value(x, y), row.masks); });
      }
    }
  }
}

TEST(BmpReaderTest, ColoursThatThePaletteLacksAreBlack) {
  const struct {
    const char* name;
    std::uint32_t header_size;
    std::uint32_t colours_used;
    int colours;  // that are in the file
  } kCases[] = {
      {"fewer colours declared", 40, 3, 3},
      {"pixel data before the declared end", 40, 0, 5},
      {"highest number of colours", 40, 0xffffffffu, 256},
      {"short in a core header", 12, 0, 3},
      {"no colour at all", 40, 0, 0},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.name);
    BmpLayout layout{.header_size = row.header_size, .width = 256, .height = 1, .bits = 8};
    layout.colours_used = row.colours_used;
    layout.palette = Colours(row.colours);
    layout.data = StoredRows(256, 1, 8, false, [](int x, int) { return x; });
    ExpectPicture(DecodeBmp(BuildBmp(layout), "a.bmp"), 256, 1, [&](int x, int) {
      return x < row.colours ? layout.palette[static_cast<std::size_t>(x)] : Bgr{0, 0, 0};
    });
  }
}

TEST(BmpReaderTest, FindsThePixelsWhereTheOffsetSays) {
  const struct {
    const char* name;
    std::optional<std::uint32_t> offset;
    std::string gap;
    int bits;
    std::uint32_t colours_used;
    int colours;
  } kCases[] = {
      {"gap after the header", {}, "gap!gap", 24, 0, 0},
      {"gap after the palette", {}, "gap", 4, 2, 2},
      {"no offset, short palette", 0, "", 4, 5, 5},
      {"no offset, more colours than possible", 0, "", 4, 300, 16},
      {"no offset, palette beside true colour", 0, "", 24, 6, 6},
      {"offset into the header", 53, "", 4, 0, 16},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.name);
    BmpLayout layout{.width = 3, .height = 2, .bits = static_cast<std::uint16_t>(row.bits)};
    layout.pixel_offset = row.offset;
    layout.gap = row.gap;
    layout.colours_used = row.colours_used;
    layout.palette = Colours(row.colours);
    const auto value = [&](int x, int y) { return row.bits == 4 ? (x + y) % 2 : Noise(x, y); };
    layout.data = StoredRows(3, 2, row.bits, false, value);
    ExpectPicture(DecodeBmp(BuildBmp(layout), "a.bmp"), 3, 2, [&](int x, int y) {
      return row.bits == 4 ? layout.palette[value(x, y)]
                           : Masked(value(x, y), {0xff0000, 0xff00, 0xff});
    });
  }
}

// Pictures of colour numbers, rows from the top, a hexadecimal digit a pixel.
struct RleCase {
  const char* name;
  int bits;
  std::string data;
  std::vector<std::string> rows;
};

const RleCase kRleCases[] = {
    {"a run a row, the lowest first", 8, "\4\1\0\0\4\2\0\1"s, {"2222", "1111"}},
    {"odd absolute run is padded", 8, "\0\3\1\2\3\x63\1\4\0\0\4\5\0\1"s, {"5555", "1234"}},
    {"what is left of a row is colour 0", 8, "\2\7\0\0\1\6\0\1"s, {"6000", "7700"}},
    {"end at once", 8, "\0\1"s, {"0000", "0000"}},
    {"delta to the right", 8, "\1\5\0\2\2\0\1\6\0\1"s, {"0000", "5006"}},
    {"delta to row 2 of 3", 8, "\0\2\3\2\1\6\0\1"s, {"0006", "0000", "0000"}},
    {"delta past the row and the top", 8, "\1\5\0\2\xff\0\1\6\0\2\1\xff\1\7"s, {"0000", "5000"}},
    {"run past the row is dropped", 8, "\xff\3\0\0\1\4\0\1"s, {"4000", "3333"}},
    {"absolute run past the row is dropped", 8, "\0\6\1\2\3\4\5\6\0\0\1\4\0\1"s, {"4000", "1234"}},
    {"complete without the end", 8, "\4\1\0\0\4\2"s, {"2222", "1111"}},
    {"complete without the last padding", 8, "\4\1\0\0\1\2\0\3\3\4\5"s, {"2345", "1111"}},
    {"data after the end", 8, "\4\1\0\1\4\2\4\3"s, {"0000", "1111"}},
    {"lines beyond the top", 8, "\4\1\0\0\4\2\0\0\0\0\4\3\0\1"s, {"2222", "1111"}},
    {"4 bits: two colours take turns", 4, "\4\x12\0\0\3\x34\0\1"s, {"3430", "1212"}},
    {"4 bits: every run starts with the high half", 4, "\1\x12\3\x34\0\1"s, {"0000", "1343"}},
    {"4 bits: absolute run of 5 is padded", 4, "\0\5\x12\x34\x5f\x63\1\x60\0\1"s, {"123456"}},
    {"4 bits: absolute run of 6 is padded", 4, "\0\6\x12\x34\x56\x63\1\x70\0\1"s, {"1234567"}},
    {"4 bits: delta", 4, "\1\x50\0\2\1\1\2\x67\0\1"s, {"0067", "5000"}},
};

TEST(BmpReaderTest, ReadsRunLengthData) {
  for (const RleCase& row : kRleCases) {
    for (const bool top_down : {false, true}) {
      SCOPED_TRACE(testing::Message() << row.name << (top_down ? ", top-down" : ""));
      const int width = static_cast<int>(row.rows[0].size());
      const int height = static_cast<int>(row.rows.size());
      BmpLayout layout{.width = width, .height = top_down ? -height : height};
      layout.bits = static_cast<std::uint16_t>(row.bits);
      layout.compression = row.bits == 8 ? 1 : 2;
      layout.palette = Colours(16);
      layout.data = row.data;
      ExpectPicture(DecodeBmp(BuildBmp(layout), "a.bmp"), width, height, [&](int x, int y) {
        const std::string& digits =
            row.rows[static_cast<std::size_t>(top_down ? height - 1 - y : y)];
        return layout.palette[static_cast<std::size_t>(digits[static_cast<std::size_t>(x)] - '0')];
      });
    }
  }
}

TEST(BmpReaderTest, RunLengthDataThatBreaksOffIsDamaged) {
  const struct {
    const char* name;
    std::string data;
  } kCases[] = {
      {"nothing", ""s},
      {"half a code", "\4"s},
      {"after a row", "\4\1\0\0"s},
      {"inside an escape", "\4\1\0\0\0"s},
      {"inside a delta", "\0\2\1"s},
      {"inside a delta to the end of the last row", "\4\1\0\0\0\2\4"s},
      {"inside an absolute run", "\4\1\0\0\0\4\1\2\3"s},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.name);
    BmpLayout layout{.width = 4, .height = 2, .bits = 8, .compression = 1, .palette = Colours(16)};
    layout.data = row.data;
    EXPECT_EQ(DecodeBmp(BuildBmp(layout), "a.bmp").status.failure, Failure::kDamaged);
  }
}

TEST(BmpReaderTest, RunLengthDataMustBeAbleToFillALargePicture) {
  const auto decode = [](int width, int height, std::size_t codes) {
    BmpLayout layout{.width = width, .height = height, .bits = 8, .compression = 1};
    layout.palette = Colours(1);
    for (std::size_t i = 1; i < codes; ++i) layout.data += "\0\0"s;
    layout.data += "\0\1"s;
    return DecodeBmp(BuildBmp(layout), "a.bmp").status.failure;
  };
  EXPECT_EQ(decode(32767, 32767, 200), Failure::kDamaged);
  EXPECT_EQ(decode(1024, 1024, 1), Failure::kNone);
  EXPECT_EQ(decode(1024, 1025, 4116), Failure::kDamaged);  // 1049600 pixels are 4116.08 codes
  EXPECT_EQ(decode(1024, 1025, 4117), Failure::kNone);
}

TEST(BmpReaderTest, RefusesWhatItCannotRead) {
  using enum Failure;
  constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
  const struct {
    const char* name;
    BmpLayout layout;
    Failure failure;
  } kCases[] = {
      {"width 0", {.width = 0}, kDamaged},
      {"lowest width", {.width = kLowest}, kDamaged},
      {"height 0", {.height = 0}, kDamaged},
      {"width 32768", {.width = 32768}, kTooLarge},
      {"height -32768", {.height = -32768}, kTooLarge},
      {"lowest height", {.height = kLowest}, kTooLarge},
      {"highest sides", {.width = kHighest, .height = kHighest}, kTooLarge},
      {"core width 65535", {.header_size = 12, .width = 65535}, kTooLarge},
      {"no pixels for the largest size", {.width = 32767, .height = 32767}, kDamaged},
      {"three planes", {.planes = 3}, kDamaged},
      {"7 bits", {.bits = 7}, kUnsupported},
      {"header of 13 bytes", {.header_size = 13}, kUnsupported},
      {"JPEG inside", {.bits = 0, .compression = 4}, kUnsupported},
      {"Huffman", {.header_size = 64, .bits = 1, .compression = 3}, kUnsupported},
      {"24-bit runs", {.header_size = 64, .compression = 4}, kUnsupported},
      {"RLE8 at 4 bits", {.bits = 4, .compression = 1}, kDamaged},
      {"RLE4 at 8 bits", {.bits = 8, .compression = 2}, kDamaged},
      {"masks at 24 bits", {.compression = 3, .masks = {0xff, 0xff00, 0xff0000}}, kDamaged},
      {"no masks", {.bits = 32, .compression = 3}, kDamaged},
      {"gap", {.bits = 32, .compression = 3, .masks = {0xff, 0xf0f00, 0}}, kDamaged},
      {"17 bits", {.bits = 16, .compression = 3, .masks = {0x1f, 0x3e0, 0x1f000}}, kDamaged},
      {"offset at the end", {.pixel_offset = 58}, kDamaged},
      {"offset past the end", {.pixel_offset = 0xffffffff}, kDamaged},
      {"palette past the end", {.bits = 8, .pixel_offset = 54 + 1024}, kDamaged},
      {"colours past the end", {.colours_used = 0xffffffff, .pixel_offset = 0}, kDamaged},
      {"another kind of file", {.signature = "GI"}, kUnsupported},
  };
  for (const auto& row : kCases) {
    SCOPED_TRACE(row.name);
    const Result<Picture> decoded =
        DecodeBmp(BuildBmp(row.layout) + std::string(4, '\0'), "C:\\Photos\\a.bmp");
    EXPECT_EQ(decoded.status.failure, row.failure) << decoded.status.message;
    EXPECT_TRUE(decoded.status.message.starts_with("C:\\Photos\\a.bmp: "));
  }
}

TEST(BmpReaderTest, AFileThatBreaksOffAnywhereIsDamaged) {
  const std::string pixels =
      StoredRows(3, 2, 4, false, [](int x, int y) -> std::uint32_t { return x + y; });
  const BmpLayout kSpecs[] = {
      {.width = 3, .height = 2, .bits = 4, .palette = Colours(16), .data = pixels},
      {.bits = 32, .compression = 6, .masks = {1, 2, 4, 8}, .data = "1234"},
      {.header_size = 124, .bits = 16, .compression = 3, .masks = {1, 2, 4}, .data = "1234"},
  };
  for (const BmpLayout& layout : kSpecs) {
    const std::string whole = BuildBmp(layout);
    const std::size_t padding = 2 * (layout.bits != 32);
    for (std::size_t size = 2; size < whole.size(); ++size) {
      const Failure expected = size < whole.size() - padding ? Failure::kDamaged : Failure::kNone;
      EXPECT_EQ(DecodeBmp(whole.substr(0, size), "a.bmp").status.failure, expected)
          << layout.bits << " bits, " << size << " of " << whole.size() << " bytes";
    }
  }
}

TEST(BmpWriterTest, WritesTheseBytes) {
  PixelArray pixels(3, 2);
  std::uint8_t next = 0x10;
  for (std::size_t i = 0; i < pixels.view().byte_count(); ++i) {
    pixels.mutable_view().data[i] = next++;
  }
  const std::string expected =
      "BM\x4e\0\0\0\0\0\0\0\x36\0\0\0"  // 78 bytes in all, pixels from 54
      "\x28\0\0\0\3\0\0\0\2\0\0\0\1\0\x18\0\0\0\0\0\x18\0\0\0"
      "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
      "\x1c\x1d\x1e\x20\x21\x22\x24\x25\x26\0\0\0"
      "\x10\x11\x12\x14\x15\x16\x18\x19\x1a\0\0\0"s;
  EXPECT_EQ(EncodeBmp24(pixels.view()), expected);
}

}  // namespace
}  // namespace tarnwell
