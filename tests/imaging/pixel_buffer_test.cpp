#include "imaging/pixel_buffer.h"

#include <gtest/gtest.h>
#include <utility>

#include "imaging/thumbnail.h"
#include "tests/support/pictures.h"
#include "tests/support/recording_events.h"

namespace tarnwell {
namespace {

TEST(PixelBufferTest, HeaderDescribesATopDownPicture) {
  struct {
    int width, height;
    std::uint32_t bytes;
  } const cases[] = {{3, 2, 24}, {1, 1, 4}, {320, 320, 409600}, {kMaxSide, kMaxSide, 4294705156u}};
  for (const auto& c : cases) {
    const BitmapHeader header = HeaderFor(c.width, c.height);
    EXPECT_EQ(header.size, 40u);
    EXPECT_EQ(header.width, c.width);
    EXPECT_EQ(header.height, -c.height);
    EXPECT_EQ(header.planes, 1);
    EXPECT_EQ(header.bits_per_pixel, 32);
    EXPECT_EQ(header.compression, 0u);
    EXPECT_EQ(header.image_bytes, c.bytes);
    EXPECT_EQ(header.colours_used, 0u);
    EXPECT_EQ(BytesPerRow(c.width), 4 * c.width);
    EXPECT_EQ(RowPadding(c.width), 0);
  }
}

// A window with a photo of 640 x 320 that was corrected in preview: picOriginal, picSource and
// picThumb hold three different pictures.
struct PixelBufferFlowTest : testing::Test {
  PixelBuffer buffer;
  RecordingEvents events;
  Picture original = RandomPixels(640, 320, 1);
  Picture source = RandomPixels(20, 10, 2);
  Picture thumb = RandomPixels(320, 160, 3);

  void SetUp() override {
    Display(buffer.surfaces.picOriginal, original);
    Display(buffer.surfaces.picSource, source);
    Display(buffer.surfaces.picThumb, thumb);
  }
};

TEST_F(PixelBufferFlowTest, ReadTakesTheNamedSurfaceAsWorkingImage) {
  const std::pair<PixelSource, Picture> cases[] = {{PixelSource::kSourceAsItStands, source},
                                                   {PixelSource::kThumbnail, thumb},
                                                   {PixelSource::kOriginal, original}};
  for (const auto& [from, expected] : cases) {
    SCOPED_TRACE(static_cast<int>(from));
    ASSERT_TRUE(ReadSourcePixels(buffer, from));
    EXPECT_EQ(buffer.surfaces.picSource.picture, expected);
    EXPECT_EQ(buffer.surfaces.picSource.width, expected->width());
    EXPECT_EQ(WorkingPixels(buffer).data, expected->view().data) << "nothing is copied";
    EXPECT_EQ(buffer.width, expected->width());
    EXPECT_EQ(buffer.height, expected->height());
    EXPECT_EQ(buffer.header, HeaderFor(expected->width(), expected->height()));
  }
}

TEST_F(PixelBufferFlowTest, ReadTakesTheDrawingImageAndShowsIt) {
  buffer.surfaces.picThumb.image = RandomPixels(7, 5, 4);
  ASSERT_TRUE(ReadSourcePixels(buffer, PixelSource::kThumbnail));
  EXPECT_EQ(buffer.surfaces.picThumb.picture, buffer.surfaces.picThumb.image);
  EXPECT_EQ(buffer.surfaces.picSource.image, buffer.surfaces.picThumb.image);
  EXPECT_EQ(buffer.width, 7);
}

TEST_F(PixelBufferFlowTest, CorrectionsReachNeitherTheSurfacesNorWhatWasRead) {
  const PixelArray before = *original;
  ASSERT_TRUE(ReadSourcePixels(buffer, PixelSource::kOriginal));
  ASSERT_TRUE(CopyWorkingPixels(buffer));
  EXPECT_EQ(*buffer.working, before);
  buffer.working->mutable_view().at(5, 5)[kGreen] ^= 0xff;
  EXPECT_EQ(WorkingPixels(buffer).data, buffer.working->view().data);
  EXPECT_EQ(*buffer.read, before);
  EXPECT_EQ(*buffer.surfaces.picSource.picture, before);
  EXPECT_EQ(*buffer.surfaces.picOriginal.picture, before);
  ASSERT_TRUE(ReadSourcePixels(buffer, PixelSource::kOriginal));
  EXPECT_EQ(WorkingPixels(buffer).data, original->view().data) << "a read starts anew";
}

TEST_F(PixelBufferFlowTest, AFailedReadLeavesEverythingAsItWas) {
  ASSERT_TRUE(ReadSourcePixels(buffer, PixelSource::kSourceAsItStands));
  buffer.surfaces.picThumb = {};
  EXPECT_FALSE(ReadSourcePixels(buffer, PixelSource::kThumbnail));
  EXPECT_EQ(buffer.read, source);
  EXPECT_EQ(buffer.surfaces.picSource.picture, source);
  EXPECT_EQ(buffer.header, HeaderFor(20, 10));
}

TEST_F(PixelBufferFlowTest, WritePlacesTheWorkingPixelsAndRebuildsThePreview) {
  buffer.surfaces.picSource.left = 12;
  buffer.surfaces.picSource.top = 3;
  const auto corrected = RandomPixels(1000, 500, 5);
  ReplaceWorkingPixels(buffer, std::make_shared<PixelArray>(*corrected));
  EXPECT_EQ(buffer.header, HeaderFor(1000, 500));
  WriteSourcePixels(buffer, events);

  const PictureSurface& shown = buffer.surfaces.picSource;
  EXPECT_EQ(*shown.picture, *corrected);
  EXPECT_EQ(shown.image, shown.picture);
  EXPECT_EQ(shown.left, 0);
  EXPECT_EQ(shown.top, 0);
  EXPECT_EQ(shown.width, 1000);
  EXPECT_EQ(shown.height, 500);
  EXPECT_EQ(*buffer.surfaces.picThumb.picture, *ThumbnailOf(corrected->view()));
  EXPECT_EQ(buffer.surfaces.picOriginal.picture, original);
  EXPECT_EQ(buffer.header, HeaderFor(1000, 500));
  EXPECT_EQ(events.runs, 1);

  EXPECT_TRUE(WorkingPixels(buffer).empty()) << "what is shown must not be changed any more";
  ASSERT_TRUE(ReadSourcePixels(buffer, PixelSource::kSourceAsItStands));
  ASSERT_TRUE(CopyWorkingPixels(buffer));
  buffer.working->mutable_view().data[0] ^= 0xff;
  EXPECT_EQ(*shown.picture, *corrected);
}

TEST_F(PixelBufferFlowTest, AFullRunAfterAPreviewStartsFromTheUncorrectedPhoto) {
  ASSERT_TRUE(ReadSourcePixels(buffer, PixelSource::kThumbnail));
  ASSERT_TRUE(CopyWorkingPixels(buffer));
  buffer.working->mutable_view().data[0] ^= 0xff;
  WriteSourcePixels(buffer, events);
  EXPECT_EQ(buffer.surfaces.picSource.width, 320);
  EXPECT_NE(*buffer.surfaces.picThumb.picture, *thumb);

  ASSERT_TRUE(ReadSourcePixels(buffer, PixelSource::kOriginal));
  EXPECT_EQ(WorkingPixels(buffer).data, original->view().data);
  WriteSourcePixels(buffer, events);
  EXPECT_EQ(buffer.surfaces.picSource.width, 640);
  EXPECT_EQ(*buffer.surfaces.picThumb.picture, *ThumbnailOf(original->view()));
}

TEST_F(PixelBufferFlowTest, TheGraphicIsKeptApartFromTheWorkingPixels) {
  ASSERT_TRUE(ReadSourcePixels(buffer, PixelSource::kSourceAsItStands));
  const Picture graphic = RandomPixels(4, 3, 6);
  Display(buffer.surfaces.picGraphic, graphic);
  ReadGraphicPixels(buffer);
  EXPECT_EQ(buffer.graphic, graphic);
  EXPECT_EQ(buffer.width, 20);
  EXPECT_EQ(buffer.read, source);
}

}  // namespace
}  // namespace tarnwell
