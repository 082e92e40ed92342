#include "platform/posix/jpeg_writer.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>

#include "imaging/jpeg_stripes.h"
#include "platform/posix/jpeg_reader.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

JpegRows RowsOf(const PixelView& pixels) {
  return {pixels.data, static_cast<std::ptrdiff_t>(pixels.stride()), pixels.width, pixels.height,
          kBytesPerPixel};
}

std::string EncodedInOneGo(const PixelView& pixels, bool half_chrominance) {
  JpegBytes file;
  EXPECT_TRUE(EncodeJpegRows(RowsOf(pixels), {80, half_chrominance, 0}, file));
  const std::unique_ptr<std::uint8_t, decltype(&std::free)> owner(file.data, &std::free);
  return std::string(reinterpret_cast<const char*>(file.data), file.size);
}

std::string EncodedInStripes(const PixelView& pixels, bool half_chrominance, int threads) {
  const auto picture = EncodeJpegPicture(RowsOf(pixels), 80, half_chrominance, threads);
  if (!picture) return {};
  std::string file = picture->file.header;
  for (const std::string_view piece : picture->file.data) file += piece;
  return file;
}

TEST(JpegWriterTest, StripesGiveTheSamePixelsAsOneGoOnAnyNumberOfThreads) {
  // The last has more stripes than there are restart markers, and a broken unit at both edges.
  const struct { int width, height; } kSizes[] = {{1, 1}, {700, 391}, {1021, 1303}};
  for (const auto& [width, height] : kSizes) {
    const auto picture = NoisyPicture(width, height, 5);
    for (const bool half_chrominance : {true, false}) {
      SCOPED_TRACE(testing::Message() << width << " x " << height << ", " << half_chrominance);
      const auto expected = DecodeJpeg(EncodedInOneGo(picture->view(), half_chrominance), "one go");
      const std::string file = EncodedInStripes(picture->view(), half_chrominance, 1);
      ASSERT_TRUE(expected.ok());
      const auto pixels = DecodeJpeg(file, "stripes");
      ASSERT_TRUE(pixels.ok()) << pixels.status.message;
      EXPECT_TRUE(**pixels == **expected);
      for (const int threads : {2, 3}) {
        EXPECT_EQ(EncodedInStripes(picture->view(), half_chrominance, threads), file);
      }
    }
  }
}

TEST(JpegWriterTest, FitsTheTablesToThePicture) {
  const auto picture = NoisyPicture(1021, 703, 5);
  const std::string file = EncodedInStripes(picture->view(), true, 1);
  ASSERT_FALSE(file.empty());
  EXPECT_LT(file.size(), EncodedInOneGo(picture->view(), true).size() * 99 / 100);
}

TEST(JpegStripesTest, CoverThePictureWithIntervalsThatAFileCanName) {
  for (const int width : {1, 500, 4032, 32767}) {
    for (const int height : {1, 17, 3024, 32767}) {
      for (const int side : {8, 16}) {
        const JpegStripes stripes = JpegStripesOf(width, height, side);
        EXPECT_EQ(stripes.rows % side, 0);
        EXPECT_LE(stripes.restart_interval, 65535);
        EXPECT_GE(stripes.count * stripes.rows, height);
        EXPECT_LT((stripes.count - 1) * stripes.rows, height);
        EXPECT_EQ(stripes.restart_interval,
                  stripes.count == 1 ? 0 : (width + side - 1) / side * (stripes.rows / side));
      }
    }
  }
}

}  // namespace
}  // namespace tarnwell
