#include "platform/posix/jpeg_reader.h"

#include <gtest/gtest.h>

#include "tests/platform/posix/make_jpeg.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

std::vector<unsigned char> Filled(int pixels, const std::vector<unsigned char>& sample) {
  std::vector<unsigned char> samples;
  for (int i = 0; i < pixels; ++i) samples.insert(samples.end(), sample.begin(), sample.end());
  return samples;
}

TEST(JpegReaderTest, TurnsEveryColourSpaceIntoBlueGreenRed) {
  // Inks 0 to 255; with an Adobe marker they are stored inverted, so that 255 lets all light pass.
  // Light = 255 x (1 - ink) x (1 - black), as in (200 x 128 + 127) / 255 = 100.
  const struct {
    const char* name;
    JpegRecipe recipe;
    std::vector<unsigned char> sample;
    int red, green, blue;
  } kCases[] = {
      {"grey", {.input = JCS_GRAYSCALE, .stored = JCS_GRAYSCALE}, {90}, 90, 90, 90},
      {"RGB", {.stored = JCS_RGB}, {200, 100, 50}, 200, 100, 50},
      {"YCbCr", {}, {200, 100, 50}, 200, 100, 50},
      {"progressive", {.progressive = true}, {200, 100, 50}, 200, 100, 50},
      {"Adobe CMYK", {.input = JCS_CMYK, .stored = JCS_CMYK}, {200, 100, 0, 128}, 100, 50, 0},
      {"Adobe YCCK", {.input = JCS_CMYK, .stored = JCS_YCCK}, {200, 100, 0, 128}, 100, 50, 0},
      {"progressive Adobe YCCK",
       {.input = JCS_CMYK, .stored = JCS_YCCK, .progressive = true},
       {200, 100, 0, 128},
       100,
       50,
       0},
      {"plain CMYK",
       {.input = JCS_CMYK, .stored = JCS_CMYK, .adobe_marker = false},
       {55, 155, 255, 127},
       100,
       50,
       0},
  };
  for (const auto& c : kCases) {
    JpegRecipe recipe = c.recipe;
    recipe.width = 9;
    recipe.height = 10;
    recipe.samples = Filled(90, c.sample);
    const Result<Picture> decoded = DecodeJpeg(MakeJpeg(recipe), c.name);
    ASSERT_TRUE(decoded.ok()) << decoded.status.message;
    const PixelView view = (*decoded)->view();
    ASSERT_EQ(view.width, 9) << c.name;
    ASSERT_EQ(view.height, 10) << c.name;
    for (int i = 0; i < 90; ++i) {
      const std::uint8_t* pixel = view.at(i % 9, i / 9);
      EXPECT_NEAR(pixel[kRed], c.red, 2) << c.name;
      EXPECT_NEAR(pixel[kGreen], c.green, 2) << c.name;
      EXPECT_NEAR(pixel[kBlue], c.blue, 2) << c.name;
      EXPECT_EQ(pixel[kUnused], 0) << c.name;
    }
  }
}

std::string Noise(bool progressive) {
  JpegRecipe recipe{.width = 64, .height = 64, .progressive = progressive};
  for (unsigned i = 0; i < 64 * 64 * 3; ++i) {
    recipe.samples.push_back(static_cast<unsigned char>(i * i * 31 >> 5));
  }
  return MakeJpeg(recipe);
}

TEST(JpegReaderTest, EveryCutIsNoticed) {
  for (const bool progressive : {false, true}) {
    const std::string whole = Noise(progressive);
    ASSERT_TRUE(DecodeJpeg(whole, "a").ok());
    for (std::size_t size = 0; size < whole.size(); size += size < 700 ? 1 : 61) {
      const Result<Picture> decoded = DecodeJpeg(whole.substr(0, size), "a");
      EXPECT_EQ(decoded.status.failure, Failure::kDamaged) << size << " bytes, " << progressive;
    }
    EXPECT_EQ(DecodeJpeg(whole.substr(0, whole.size() - 2), "a").status.message,
              "a: the file breaks off");
  }
}

TEST(JpegReaderTest, BrokenCodesAreNoticedAndStrayBytesBetweenMarkersAreNot) {
  std::string broken = Noise(true);
  // libjpeg-turbo looks for wrong codes in progressive files only; in the others damage of this
  // kind shows where the data ends too early.
  // Sixteen ones in a row are no code of any table; a zero byte follows every FF in the data.
  for (std::size_t at = broken.size() / 2, i = 0; i < 20; ++i)
    broken.replace(at + 2 * i, 2, "\xFF\0", 2);
  const Result<Picture> decoded = DecodeJpeg(broken, "a");
  EXPECT_EQ(decoded.status.failure, Failure::kDamaged);
  EXPECT_TRUE(decoded.status.message.starts_with("a: the picture data is damaged (Corrupt JPEG"))
      << decoded.status.message;

  std::string stray = Noise(false);
  stray.insert(stray.find("\xFF\xDB"), 7, 'x');
  EXPECT_TRUE(DecodeJpeg(stray, "a").ok());
}

}  // namespace
}  // namespace tarnwell
