// A photo's metadata on its way from the opened file to the saved one, through the flows.

#include <gtest/gtest.h>

#include "automation/adjust_directory.h"
#include "imaging/file_open.h"
#include "imaging/file_save.h"
#include "imaging/jpeg_encoder.h"
#include "imaging/jpeg_quality.h"
#include "imaging/load_photo.h"
#include "imaging/photo_size.h"
#include "imaging/read_metadata.h"
#include "imaging/upright.h"
#include "tests/support/bmp_builder.h"
#include "tests/support/exif_builder.h"
#include "tests/support/pictures.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

std::string JpegOf(const PixelView& picture, int quality = 95) {
  std::vector<std::uint8_t> rows;
  for (std::size_t i = 0; i < picture.pixel_count(); ++i) {
    rows.insert(rows.end(), picture.data + 4 * i, picture.data + 4 * i + 3);
  }
  return EncodeJpeg({rows.data(), picture.width * 3, picture.width, picture.height}, quality,
                    false);
}

std::string WithExif(const std::string& jpeg, const ExifRecipe& recipe) {
  std::string segment;
  AddSegment(segment, kFirstApp + 1, MakeExif(recipe));
  return WithSegments(jpeg, segment);
}

class PhotoTravelsTest : public testing::Test {
 protected:
  PhotoTravelsTest() { window.app.open_mode = 2; }

  void Open(const std::string& bytes) {
    window.app.opened_path = window.folder.Write("photo.jpg", bytes);
    const Status opened = FileOpen(window.form, false);
    ASSERT_TRUE(opened.ok()) << opened.message;
  }

  // The bytes of the saved file.
  std::string Save(const std::string& name) {
    window.form.names.output_path = window.folder.File(name);
    const Status saved = FileSave(window.form, false);
    EXPECT_TRUE(saved.ok()) << saved.message;
    return window.folder.Read(name);
  }

  TestWindow window;
  const Picture stored = NoisyPicture(60, 40, 3);
};

TEST_F(PhotoTravelsTest, EveryOrientationIsOpenedUprightAndSavedAsUpright) {
  const std::string jpeg = JpegOf(stored->view());
  const Result<Picture> decoded = window.codec->Decode(jpeg, "photo");
  ASSERT_TRUE(decoded.ok());
  for (int orientation = 1; orientation <= 8; ++orientation) {
    Open(WithExif(jpeg, {.orientation = orientation, .width = 60, .height = 40}));
    const Picture& upright = window.surfaces().picOriginal.picture;
    EXPECT_EQ(*upright, *TurnUpright(*decoded, orientation)) << orientation;
    const SharedMetadata saved = ReadPhotoMetadata(Save(std::to_string(orientation) + ".jpg"));
    ASSERT_TRUE(saved && saved->segments.size() == 1);
    EXPECT_EQ(saved->segments[0].content,
              MakeExif({.width = upright->width(), .height = upright->height()}));
  }
  EXPECT_TRUE(window.dialogs.shown.empty());
}

TEST_F(PhotoTravelsTest, TheThumbnailShowsTheSavedPictureAndNotTheOpenedOne) {
  const std::string old = JpegOf(NoisyPicture(80, 60, 9)->view());
  Open(WithExif(JpegOf(stored->view()), {.orientation = 6, .thumbnail = old}));
  auto red = std::make_shared<PixelArray>(40, 60);
  for (int i = 0; i < 40 * 60; ++i) SetPixel(red->mutable_view(), i % 40, i / 40, {200, 30, 20});
  Display(window.surfaces().picSource, red);
  const std::string saved = Save("red.jpg");
  const std::size_t at = saved.find("\xFF\xD8", 2);
  ASSERT_NE(at, saved.npos);
  const Result<Picture> thumbnail = window.codec->Decode(saved.substr(at), "thumbnail");
  ASSERT_TRUE(thumbnail.ok()) << thumbnail.status.message;
  ASSERT_EQ((*thumbnail)->width(), 40);
  ASSERT_EQ((*thumbnail)->height(), 60);
  const TestPixel pixel = PixelAt((*thumbnail)->view(), 20, 30);
  EXPECT_NEAR(pixel.red, 200, 4);
  EXPECT_NEAR(pixel.green, 30, 4);
}

TEST_F(PhotoTravelsTest, WhatIsLostIsToldOncePerPhotoAndForEveryBitmap) {
  const std::string companion = JpegOf(stored->view());
  Open(WithExif(JpegOf(stored->view()), {}) + companion);
  Save("1.jpg");
  Save("2.jpg");
  Save("3.bmp");
  ASSERT_EQ(window.dialogs.Told().size(), 2u);
  EXPECT_TRUE(window.dialogs.Told()[0].starts_with("photo.jpg: Pictures behind the main one"));
  EXPECT_EQ(window.dialogs.Told()[1], "photo.jpg: A bitmap cannot keep its EXIF data.");

  // In a whole folder nobody is there to be told: it is part of the outcome.
  const auto outcome = AdjustDirectory(window.form, {});
  ASSERT_TRUE(outcome.ok());
  ASSERT_EQ(outcome->notes.size(), 1u);
  EXPECT_EQ(window.dialogs.Told().size(), 2u);
}

TEST_F(PhotoTravelsTest, AMapOfTheSensorIsTurnedWithThePhoto) {
  PixelArray map(60, 40);
  map.mutable_view().at(50, 10)[kRed] = 255;
  window.folder.MakeFolder("program\\Cameras\\Default\\~ Dead Pixels\\60x40");
  ASSERT_TRUE(window.codec
                  ->SaveBitmap(window.folder.File("program\\Cameras\\Default\\~ Dead Pixels\\"
                                                  "60x40\\map.bmp"),
                               map.view())
                  .ok());
  window.modules.open[kDeadPixelCorrection] = 1;
  const std::string jpeg = JpegOf(stored->view());
  const Picture before = TurnUpright(*window.codec->Decode(jpeg, "photo"), 6);
  Open(WithExif(jpeg, {.orientation = 6}));
  const PixelView after = window.surfaces().picOriginal.picture->view();
  // Clockwise, column 50 becomes row 50, and row 10 column 39 - 10.
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 40; ++x) {
      const bool changed = PixelAt(after, x, y) != PixelAt(before->view(), x, y);
      ASSERT_EQ(changed, x == 29 && y == 50) << x << ", " << y;
    }
  }
}

TEST_F(PhotoTravelsTest, QualityAndChrominanceFollowTheChoice) {
  struct Case {
    int source;
    bool as_original;
    const char* slider;
    int quality;
    char factors;  // of the luminance, across and down
  };
  const Case cases[] = {{63, true, "80", 63, '\x22'},
                        {97, true, "80", 97, '\x11'},
                        {97, false, "90", 90, '\x11'},
                        {97, false, "89", 89, '\x22'}};
  int number = 0;
  for (const Case& c : cases) {
    Open(JpegOf(stored->view(), c.source));
    window.modules.save_switches[kQualityAsOriginal] = c.as_original;
    window.modules.sliders[kJpegQualitySlider].text = c.slider;
    const std::string saved = Save(std::to_string(++number) + ".jpg");
    const auto segments = SegmentsBeforeScan(saved);
    EXPECT_EQ(EstimateJpegQuality(segments), c.quality);
    for (const JpegSegment& segment : segments) {
      if (!IsFrameMarker(segment.marker)) continue;
      EXPECT_EQ(segment.content[7], c.factors) << c.quality;
    }
  }
}

TEST(LoadPhoto, RefusesByArithmeticWhatMemoryDoesNotHold) {
  constexpr std::uint64_t kEightGigabytes = std::uint64_t{8} << 30;
  frmModules panel = FirstStartPanel();
  const auto check = [&](int width, int height) {
    const std::string file = BuildBmp({.width = width, .height = height});
    return CheckMemory(MemoryToCorrect(file, panel), kEightGigabytes, "photo.bmp");
  };
  EXPECT_TRUE(check(16320, 12240).ok()) << "200 megapixels";
  EXPECT_TRUE(check(20000, 17500).ok()) << "350 megapixels, 16 bytes each";
  const Status refused = check(30000, 20000);
  EXPECT_EQ(refused.failure, Failure::kTooLarge);
  EXPECT_EQ(
      refused.message,
      "photo.bmp: the picture is too large: it needs 9159 MB of memory, and there are 6144 MB "
      "for it");

  panel.open[kNoiseReduction] = panel.open[kAdjustFocus] = 1;
  EXPECT_TRUE(check(16320, 12240).ok());
  EXPECT_FALSE(check(20000, 17500).ok()) << "21 bytes each";
}

}  // namespace
}  // namespace tarnwell
