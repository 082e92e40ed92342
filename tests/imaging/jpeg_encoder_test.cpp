#include "imaging/jpeg_encoder.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <numeric>
#include <vector>

#include "imaging/jpeg_huffman.h"
#include "imaging/jpeg_quality.h"
#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

BgrRows RowsOf(const PixelView& view) {
  return {view.data, static_cast<std::ptrdiff_t>(view.stride()), view.width, view.height,
          kBytesPerPixel};
}

Picture Decoded(const std::string& jpeg) {
  const Result<Picture> decoded = MakeSystemPictureCodec()->Decode(jpeg, "encoded");
  EXPECT_TRUE(decoded.ok()) << decoded.status.message;
  return decoded.ok() ? *decoded : std::make_shared<PixelArray>(1, 1);
}

// The largest difference of a channel after the system's reader has decoded what was encoded of
// the picture's upper left corner.
int WorstError(const Picture& picture, int width, int height, int quality, bool half_chrominance) {
  BgrRows corner = RowsOf(picture->view());
  corner.width = width;
  corner.height = height;
  const Picture decoded = Decoded(EncodeJpeg(corner, quality, half_chrominance));
  EXPECT_TRUE(decoded->width() == width && decoded->height() == height);
  int worst = 0;
  for (int y = 0; y < decoded->height(); ++y) {
    for (int x = 0; x < decoded->width(); ++x) {
      for (int channel = 0; channel < 3; ++channel) {
        worst = std::max(
            worst, std::abs(decoded->view().at(x, y)[channel] - picture->view().at(x, y)[channel]));
      }
    }
  }
  return worst;
}

TEST(JpegEncoderTest, EverySizeAndQualityComesBack) {
  const Picture slopes = NoisyPicture(64, 64, 1, 0);  // which even halved chrominance carries
  for (const int side : {1, 2, 7, 8, 9, 15, 16, 17, 33}) {
    for (const bool half : {false, true}) {
      EXPECT_LE(WorstError(slopes, side, 5, 100, half), 10) << side << " wide, half " << half;
      EXPECT_LE(WorstError(slopes, 5, side, 100, half), 10) << side << " high, half " << half;
    }
  }
  EXPECT_LE(WorstError(slopes, 40, 40, 75, true), 16);
  // Noise takes the longest codes; a wrong entry in a table would throw the rest of the file over.
  const Picture noise = RandomPixels(64, 64);
  EXPECT_LE(WorstError(noise, 64, 64, 100, false), 4);
  for (const int quality : {0, 1, 49, 50, 75}) {
    EXPECT_LE(WorstError(noise, 40, 40, quality, quality % 2), 255) << quality;
  }
}

// Several stripes with a broken unit at both edges, from pixels of three bytes and of four.
TEST(JpegEncoderTest, StripesGiveTheSamePixelsInFewerBytesOnAnyNumberOfThreads) {
  const auto picture = NoisyPicture(1021, 403, 5);
  const PixelView view = picture->view();
  std::vector<std::uint8_t> threes;
  for (std::size_t i = 0; i < view.byte_count(); i += kBytesPerPixel) {
    threes.insert(threes.end(), view.data + i, view.data + i + 3);
  }
  for (const bool half : {false, true}) {
    const std::string in_one_go = EncodeJpeg({threes.data(), 3 * 1021, 1021, 403}, 85, half);
    EXPECT_EQ(EncodeJpeg(RowsOf(view), 85, half), in_one_go);
    const std::string file = EncodeJpegInStripes(RowsOf(view), 85, half, 1);
    EXPECT_NE(file.find("\xFF\xDD"), std::string::npos) << "no restart interval";
    EXPECT_LT(file.size(), in_one_go.size());
    for (const int threads : {2, 5}) {
      EXPECT_EQ(EncodeJpegInStripes(RowsOf(view), 85, half, threads), file);
    }
    EXPECT_TRUE(*Decoded(file) == *Decoded(in_one_go));
  }
}

TEST(FitHuffmanTableTest, CodesEverySymbolInSixteenBitsAtMostAndLeavesAllOnesFree) {
  for (const HuffmanTable& recommended : kHuffmanTables) {
    // Each twice as frequent as the one before: without a limit, codes as long as there are
    // symbols.
    std::array<std::uint32_t, 256> steep = {}, level = {}, none = {};
    for (std::size_t i = 0; i < recommended.symbols.size(); ++i) {
      steep[recommended.symbols[i]] = i < 30 ? 1u << i : 0;
      level[recommended.symbols[i]] = 1000;
    }
    for (const auto& counts : {steep, level, none}) {
      const FittedHuffmanTable table = FitHuffmanTable(recommended, counts);
      EXPECT_TRUE(std::is_permutation(table.symbols.begin(), table.symbols.end(),
                                      recommended.symbols.begin(), recommended.symbols.end()));
      EXPECT_EQ(std::accumulate(table.counts.begin(), table.counts.end(), std::size_t{0}),
                table.symbols.size());
      // Of 2^16 codes of 16 bits, a shorter one takes its share.
      int taken = 0;
      for (int length = 1; length <= 16; ++length) {
        taken += table.counts[length - 1] << (16 - length);
      }
      EXPECT_LT(taken, 1 << 16);
    }
  }
}

TEST(JpegQuality, IsFoundAgainAndTablesOfOtherEncodersGiveTheNearest) {
  for (int quality = 1; quality <= 100; ++quality) {
    const std::string jpeg = EncodeJpeg(RowsOf(PixelArray(8, 8).view()), quality, false);
    EXPECT_EQ(EstimateJpegQuality(SegmentsBeforeScan(jpeg)), quality);
  }
  const auto estimate = [](const std::string& tables) {
    std::string jpeg = "\xFF\xD8";
    AddSegment(jpeg, kQuantisationMarker, tables);
    return EstimateJpegQuality(SegmentsBeforeScan(jpeg));
  };
  EXPECT_EQ(estimate('\0' + std::string(64, '\1')), 100);
  const int coarse = *estimate('\0' + std::string(64, '\x40'));
  const int fine = *estimate('\0' + std::string(64, '\x08'));
  EXPECT_LT(coarse, fine);
  std::string wide(1, '\x10');  // steps of two bytes
  for (int i = 0; i < 64; ++i) wide += std::string("\0\x08", 2);
  EXPECT_EQ(estimate(wide), fine);
  EXPECT_EQ(estimate('\0' + std::string(63, '\1')), std::nullopt) << "breaks off";
}

}  // namespace
}  // namespace tarnwell
