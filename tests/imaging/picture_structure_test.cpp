#include <gtest/gtest.h>

#include "imaging/gif_structure.h"
#include "imaging/jpeg_structure.h"
#include "imaging/other_pictures.h"

namespace tarnwell {
namespace {

using namespace std::string_literals;

// A screen of 5 x 4 with two colours, a comment, and a frame of 2 x 3 at (1, 300) with 4 bytes of
// data in two sub-blocks.
const std::string kScreen = "GIF89a\5\0\4\0\x80\0\0abcdef"s;
const std::string kComment = "\x21\xFE\3xyz\0"s;
const std::string kFrame = "\x2C\1\0\x2C\1\2\0\3\0\0\2\3abc\1d\0"s;

TEST(OtherPicturesTest, AreToldByTheirFirstBytes) {
  const struct {
    std::string bytes;
    const char* kind;  // nothing: none that is known
  } rows[] = {{"\x89PNG\r\n\x1A\n", "a PNG"},
              {"RIFF\1\2\3\4WEBPVP8 "s, "a WebP"},
              {"RIFF\1\2\3\4WAVE"s, nullptr},
              {"II*\0\b\0\0\0"s, "a TIFF or raw"},
              {"\0\0\0\x18"
               "ftypheic\0\0\0\0mif1heic"s,
               "a HEIC"},
              {"\0\0\0\x18"
               "ftypmif1\0\0\0\0mif1avif"s,
               "an AVIF"},
              {"\0\0\0\x14"
               "ftypmif1\0\0\0\0mif1avif"s,
               "a HEIC"},
              {"\0\0\0\x18"
               "ftypheix"s,
               "a HEIC"},
              {"\0\0\0\x18"
               "ftypmp42\0\0\0\0isomavc1"s,
               nullptr},
              {"\0\0\0\x18"
               "ftyp"s,
               nullptr},
              {"\xFF\x0A", "a JPEG XL"},
              {"", nullptr}};
  for (const auto& row : rows) {
    EXPECT_EQ(NoPhoto(row.bytes, "a.jpg").message,
              row.kind == nullptr
                  ? "a.jpg: not a BMP, GIF or JPEG picture"
                  : "a.jpg: is "s + row.kind + " picture, which cannot be read; export it as JPEG");
  }
}

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
      {"screen of 4 billion pixels", "GIF89a\xFF\xFF\xFF\xFF\x80\0\0abcdef"s + one_by_one,
       Failure::kTooLarge},
      {"largest screen for a dot", "GIF89a\xFF\x7F\xFF\x7F\x80\0\0abcdef"s + one_by_one,
       Failure::kTooLarge},
      {"screen above the limit", "GIF89a\0\x40\1\x40\x80\0\0abcdef"s + one_by_one,
       Failure::kTooLarge},
      {"screen at the limit", "GIF89a\0\x40\0\x40\x80\0\0abcdef"s + one_by_one, Failure::kNone},
      {"too little data", kScreen + "\x2C\0\0\0\0\0\x70\0\x70\0\2\1a\0"s, Failure::kDamaged},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(FindGifFirstFrame(c.bytes, "a.gif").status.failure, c.failure) << c.name;
  }
}

using namespace std::string_literals;

std::string Word(int value) {
  return {static_cast<char>(value >> 8), static_cast<char>(value & 255)};
}

struct Header {
  int marker = 0xC0;
  int bits = 8;
  int width = 16;
  int height = 24;
  std::string factors = "\1\x11\0"s;  // three bytes a component
};

std::string FrameSegment(const Header& header) {
  return "\xFF"s + static_cast<char>(header.marker) +
         Word(8 + static_cast<int>(header.factors.size())) + static_cast<char>(header.bits) +
         Word(header.height) + Word(header.width) + static_cast<char>(header.factors.size() / 3) +
         header.factors;
}

const std::string kStart = "\xFF\xD8\xFF\xE1\0\6\xFF\xD9??"s;  // an end marker inside a segment
const std::string kScan = "\xFF\xDA\0\x08\1\1\0\0?\0ab\xFF\0c\xFF\xD0zz\xFF\xFF\0d"s;
const std::string kEnd = "\xFF\xD9"s;

std::string FileOf(const Header& header) { return kStart + FrameSegment(header) + kScan + kEnd; }

TEST(JpegStructureTest, AcceptsWholeFilesWhateverFollowsThem) {
  for (const std::string& tail : {""s, "x"s, "\xFF\xD8\xFF\xE0"s, std::string(1000, '\xFF')}) {
    const auto size = CheckJpeg(FileOf({}) + tail, "a.jpg");
    ASSERT_TRUE(size.ok()) << size.status.message;
    EXPECT_EQ(size->width, 16);
    EXPECT_EQ(size->height, 24);
  }
}

TEST(JpegStructureTest, EveryPrefixBreaksOff) {
  const std::string whole = FileOf({});
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const auto size = CheckJpeg(whole.substr(0, length), "a.jpg");
    EXPECT_EQ(size.status.failure, Failure::kDamaged) << length;
    EXPECT_EQ(size.status.message, "a.jpg: the file breaks off") << length;
  }
}

TEST(JpegStructureTest, ChecksTheFrameHeader) {
  const std::string three = "\1\x22\0\2\x11\1\3\x11\1"s;
  const struct {
    const char* name;
    Header header;
    Failure failure;
  } kCases[] = {
      {"progressive", {.marker = 0xC2, .factors = three}, Failure::kNone},
      {"four components", {.factors = three + "\4\x22\0"s}, Failure::kNone},
      {"longest side", {.width = 32767, .height = 1}, Failure::kDamaged},
      {"too wide", {.width = 32768, .height = 1}, Failure::kTooLarge},
      {"too high", {.width = 1, .height = 32768}, Failure::kTooLarge},
      {"no width", {.width = 0}, Failure::kDamaged},
      {"no height", {.height = 0}, Failure::kDamaged},
      {"lossless", {.marker = 0xC3}, Failure::kUnsupported},
      {"arithmetic", {.marker = 0xC9}, Failure::kUnsupported},
      {"12 bits", {.bits = 12}, Failure::kUnsupported},
      {"two components", {.factors = three.substr(0, 6)}, Failure::kUnsupported},
      {"no components", {.factors = ""}, Failure::kDamaged},
      {"factor 0", {.factors = "\1\x01\0"s}, Failure::kDamaged},
      {"factor 5", {.factors = "\1\x51\0"s}, Failure::kDamaged},
      {"more blocks than bits", {.width = 1600, .height = 1600}, Failure::kDamaged},
  };
  for (const auto& c : kCases) {
    const auto size = CheckJpeg(FileOf(c.header), "a.jpg");
    EXPECT_EQ(size.status.failure, c.failure) << c.name << ": " << size.status.message;
  }
}

TEST(JpegStructureTest, EveryScanCountsAgainstThePicture) {
  const Header big{.marker = 0xC2, .width = 4000, .height = 4000};
  const std::string blocks(4000 * 4000 / 64 / 8, 'x');
  const auto file_of = [&](int scans) {
    std::string bytes = kStart + FrameSegment(big) + blocks;
    for (int i = 0; i < scans; ++i) bytes += kScan;
    return bytes + kEnd;
  };
  EXPECT_TRUE(CheckJpeg(file_of(200), "a.jpg").ok());
  EXPECT_EQ(CheckJpeg(file_of(300), "a.jpg").status.failure, Failure::kTooLarge);
}

}  // namespace
}  // namespace tarnwell
