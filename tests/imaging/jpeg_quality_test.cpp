#include "imaging/jpeg_quality.h"

#include <gtest/gtest.h>
#include <vector>

#include "imaging/jpeg_encoder.h"

namespace tarnwell {
namespace {

TEST(JpegQuality, IsFoundAgain) {
  const std::vector<std::uint8_t> pixels(8 * 8 * 3, 128);
  for (int quality = 1; quality <= 100; ++quality) {
    const std::string jpeg = EncodeJpeg({pixels.data(), 24, 8, 8}, quality, false);
    EXPECT_EQ(EstimateJpegQuality(SegmentsBeforeScan(jpeg)), quality);
  }
}

TEST(JpegQuality, FinerAndCoarserTablesOfOtherEncodersGiveTheNearest) {
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
