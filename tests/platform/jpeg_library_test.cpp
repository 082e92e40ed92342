#include "imaging/jpeg_library.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

constexpr int kWidth = 5, kHeight = 32, kPad = 1;  // 5 x 3 bytes fill up to 16

// Rows of 16 bytes in the order stored: the first half blue, the second half red.
std::vector<std::uint8_t> BlueThenRed() {
  std::vector<std::uint8_t> rows(std::size_t{kHeight} * (kWidth * 3 + kPad), 0xEE);
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      std::uint8_t* pixel = &rows[static_cast<std::size_t>(y * 16 + x * 3)];
      pixel[0] = y < kHeight / 2 ? 200 : 0;
      pixel[1] = 0;
      pixel[2] = y < kHeight / 2 ? 0 : 200;
    }
  }
  return rows;
}

class JpegLibraryTest : public testing::Test {
 protected:
  JpegLibraryTest() {
    EXPECT_EQ(library->ijlInit(record.get()), 0);
    record->DIBBytes = rows.data();
    record->DIBWidth = kWidth;
    record->DIBHeight = -kHeight;
    record->DIBPadBytes = kPad;
    record->JPGWidth = kWidth;
    record->JPGHeight = kHeight;
    record->jquality = 90;
    SetPath(folder.File("a.jpg"));
  }

  void SetPath(const std::string& path) {
    encoded_path = library->EncodePath(path);
    record->JPGFile = encoded_path.c_str();
  }

  Picture Written() {
    const Result<Picture> loaded = MakeSystemPictureCodec()->Load(folder.File("a.jpg"));
    EXPECT_TRUE(loaded.ok()) << loaded.status.message;
    return loaded.ok() ? *loaded : std::make_shared<PixelArray>(kWidth, kHeight);
  }

  TempFolder folder;
  std::unique_ptr<JpegLibrary> library = MakeSystemJpegLibrary();
  std::unique_ptr<JPEG_CORE_PROPERTIES> record = std::make_unique<JPEG_CORE_PROPERTIES>();
  std::vector<std::uint8_t> rows = BlueThenRed();
  std::string encoded_path;
};

// At the edges, away from the rows where the two colours meet.
void ExpectTopAndBottom(const PixelView& picture, Channel top, Channel bottom) {
  ASSERT_EQ(picture.width, kWidth);
  ASSERT_EQ(picture.height, kHeight);
  for (int x = 0; x < kWidth; ++x) {
    EXPECT_NEAR(picture.at(x, 0)[top], 200, 6);
    EXPECT_NEAR(picture.at(x, 0)[bottom], 0, 6);
    EXPECT_NEAR(picture.at(x, kHeight - 1)[bottom], 200, 6);
    EXPECT_NEAR(picture.at(x, kHeight - 1)[top], 0, 6);
  }
}

TEST_F(JpegLibraryTest, NegativeHeightMeansThatTheBottomRowIsStoredFirst) {
  ASSERT_EQ(library->ijlWrite(record.get(), kWriteWholeFile), 0);
  EXPECT_EQ(library->ijlFree(record.get()), 0);
  ExpectTopAndBottom(Written()->view(), kRed, kBlue);
}

TEST_F(JpegLibraryTest, PositiveHeightMeansThatTheTopRowIsStoredFirst) {
  record->DIBHeight = kHeight;
  ASSERT_EQ(library->ijlWrite(record.get(), kWriteWholeFile), 0);
  EXPECT_EQ(library->ijlFree(record.get()), 0);
  ExpectTopAndBottom(Written()->view(), kBlue, kRed);
}

TEST_F(JpegLibraryTest, EveryQualityWritesAndMoreTakesMoreBytes) {
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = static_cast<std::uint8_t>(i * i * 7);
  std::size_t last = 0;
  for (int quality : {0, 50, 100}) {
    record->jquality = quality;
    ASSERT_EQ(library->ijlWrite(record.get(), kWriteWholeFile), 0) << quality;
    EXPECT_GT(folder.Read("a.jpg").size(), last) << quality;
    last = folder.Read("a.jpg").size();
  }
}

TEST_F(JpegLibraryTest, WritesFilesWithNamesInOtherScripts) {
  const std::string name = "\xC3\xA9t\xC3\xA9 \xE6\xBC\xA2.jpg";
  SetPath(folder.File(name));
  ASSERT_EQ(library->ijlWrite(record.get(), kWriteWholeFile), 0);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{name});
}

TEST_F(JpegLibraryTest, RefusesRecordsThatContradictThemselvesAndMakesNoFile) {
  using Record = JPEG_CORE_PROPERTIES;
  const struct {
    const char* name;
    std::function<void(Record&)> spoil;
  } kCases[] = {
      {"no pixels", [](Record& r) { r.DIBBytes = nullptr; }},
      {"no file", [](Record& r) { r.JPGFile = nullptr; }},
      {"empty file name", [](Record& r) { r.JPGFile = ""; }},
      {"no width", [](Record& r) { r.DIBWidth = r.JPGWidth = 0; }},
      {"no height", [](Record& r) { r.DIBHeight = r.JPGHeight = 0; }},
      {"lowest height", [](Record& r) { r.DIBHeight = r.JPGHeight = INT32_MIN; }},
      {"too wide", [](Record& r) { r.DIBWidth = r.JPGWidth = 70000; }},
      {"negative padding", [](Record& r) { r.DIBPadBytes = -1; }},
      {"widths differ", [](Record& r) { r.JPGWidth = kWidth + 1; }},
      {"heights differ", [](Record& r) { r.JPGHeight = kHeight - 1; }},
      {"quality below", [](Record& r) { r.jquality = -1; }},
      {"quality above", [](Record& r) { r.jquality = 101; }},
      {"four channels", [](Record& r) { r.DIBChannels = 4; }},
  };
  const Record good = *record;
  for (const auto& c : kCases) {
    *record = good;
    c.spoil(*record);
    EXPECT_NE(library->ijlWrite(record.get(), kWriteWholeFile), 0) << c.name;
    EXPECT_EQ(library->ijlFree(record.get()), 0) << c.name;
  }
  *record = good;
  EXPECT_NE(library->ijlWrite(record.get(), 1), 0) << "another mode";
  EXPECT_EQ(folder.Names(), std::vector<std::string>{});
}

TEST_F(JpegLibraryTest, ReportsAFileThatCannotBeMade) {
  SetPath(folder.File("no\\a.jpg"));
  EXPECT_NE(library->ijlWrite(record.get(), kWriteWholeFile), 0);
  SetPath(folder.MakeFolder("sub"));
  EXPECT_NE(library->ijlWrite(record.get(), kWriteWholeFile), 0);
  EXPECT_EQ(library->ijlFree(record.get()), 0);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"sub"});
}

}  // namespace
}  // namespace tarnwell
