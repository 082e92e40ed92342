#include "imaging/jpeg_encoder.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

struct Bgr {
  int width, height;
  std::vector<std::uint8_t> bytes;

  Bgr(int w, int h) : width(w), height(h), bytes(static_cast<std::size_t>(w) * h * 3) {}
  BgrRows rows() const { return {bytes.data(), std::ptrdiff_t{3} * width, width, height}; }
};

Bgr Noise(int width, int height) {
  Bgr picture(width, height);
  std::mt19937 random(7);
  for (std::uint8_t& byte : picture.bytes) byte = static_cast<std::uint8_t>(random());
  return picture;
}

// Slopes in all channels, that even halved chrominance carries.
Bgr Slopes(int width, int height) {
  Bgr picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      std::uint8_t* pixel = &picture.bytes[static_cast<std::size_t>(y * width + x) * 3];
      pixel[0] = static_cast<std::uint8_t>(20 + x * 3);
      pixel[1] = static_cast<std::uint8_t>(200 - y * 3);
      pixel[2] = static_cast<std::uint8_t>(60 + x + y);
    }
  }
  return picture;
}

// The largest difference of a channel after the system's reader has decoded what was encoded.
int WorstError(const Bgr& picture, int quality, bool half_chrominance) {
  const TempFolder folder;
  const std::string path =
      folder.Write("a.jpg", EncodeJpeg(picture.rows(), quality, half_chrominance));
  const Result<Picture> loaded = MakeSystemPictureCodec()->Load(path);
  EXPECT_TRUE(loaded.ok()) << loaded.status.message;
  if (!loaded.ok()) return 256;
  const PixelView view = (*loaded)->view();
  EXPECT_EQ(view.width, picture.width);
  EXPECT_EQ(view.height, picture.height);
  int worst = 0;
  for (std::size_t i = 0; i < picture.bytes.size(); ++i) {
    const int decoded = view.data[i / 3 * 4 + i % 3];
    worst = std::max(worst, std::abs(decoded - picture.bytes[i]));
  }
  return worst;
}

TEST(JpegEncoderTest, EveryOddSizeComesBack) {
  for (int side : {1, 2, 7, 8, 9, 15, 16, 17, 33}) {
    for (bool half : {false, true}) {
      EXPECT_LE(WorstError(Slopes(side, 5), 100, half), 10) << side << " wide, half " << half;
      EXPECT_LE(WorstError(Slopes(5, side), 100, half), 10) << side << " high, half " << half;
    }
  }
}

// Noise takes the longest codes; a wrong entry in a table would throw the rest of the file over.
TEST(JpegEncoderTest, NoiseAtFullQualityKeepsEveryPixel) {
  EXPECT_LE(WorstError(Noise(64, 64), 100, false), 4);
}

TEST(JpegEncoderTest, LowerQualityStillDecodes) {
  for (int quality : {0, 1, 49, 50, 75}) {
    EXPECT_LE(WorstError(Noise(40, 40), quality, quality % 2), 255) << quality;
  }
  EXPECT_LE(WorstError(Slopes(40, 40), 75, true), 16);
}

// Several stripes with a broken unit at both edges, from pixels of three bytes and of four.
TEST(JpegEncoderTest, StripesGiveTheSamePixelsInFewerBytesOnAnyNumberOfThreads) {
  const auto picture = NoisyPicture(1021, 403, 5);
  const PixelView view = picture->view();
  const BgrRows rows = {view.data, static_cast<std::ptrdiff_t>(view.stride()), view.width,
                        view.height, kBytesPerPixel};
  Bgr plain(view.width, view.height);
  for (std::size_t i = 0; i < plain.bytes.size(); ++i) {
    plain.bytes[i] = view.data[i / 3 * 4 + i % 3];
  }
  const auto codec = MakeSystemPictureCodec();
  for (const bool half : {false, true}) {
    const std::string in_one_go = EncodeJpeg(plain.rows(), 85, half);
    EXPECT_EQ(EncodeJpeg(rows, 85, half), in_one_go);
    const std::string file = EncodeJpegInStripes(rows, 85, half, 1);
    EXPECT_NE(file.find("\xFF\xDD"), std::string::npos) << "no restart interval";
    EXPECT_LT(file.size(), in_one_go.size());
    for (const int threads : {2, 5}) {
      EXPECT_EQ(EncodeJpegInStripes(rows, 85, half, threads), file);
    }
    const Result<Picture> decoded = codec->Decode(file, "stripes");
    const Result<Picture> expected = codec->Decode(in_one_go, "one go");
    ASSERT_TRUE(decoded.ok() && expected.ok()) << decoded.status.message;
    EXPECT_TRUE(**decoded == **expected);
  }
}

}  // namespace
}  // namespace tarnwell
