#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "imaging/cdib_section.h"
#include "imaging/jpeg_library.h"
#include "imaging/save_jpeg_file.h"
#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

constexpr std::uint8_t kCorners[2][2][3] = {{{200, 30, 40}, {30, 200, 60}},  // blue, green
                                            {{20, 50, 210}, {90, 90, 90}}};  // red, grey

// Quarters of one colour each, so that a swapped channel, a flip, a mirror or a wrong row length
// shows in the corners.
PixelArray FourColours(int width, int height) {
  PixelArray picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const auto& colour = kCorners[2 * y >= height][2 * x >= width];
      std::copy(colour, colour + 3, picture.mutable_view().at(x, y));
    }
  }
  return picture;
}

TEST(JpegRoundTripTest, TheWrittenFileShowsThePictureUprightInItsColours) {
  const std::unique_ptr<JpegLibrary> library = MakeSystemJpegLibrary();
  const std::unique_ptr<PictureCodec> codec = MakeSystemPictureCodec();
  const TempFolder folder;
  ScriptedDialogs dialogs;
  for (const int width : {61, 62, 63, 64}) {
    SCOPED_TRACE(width);
    const int height = 48;
    cDIBSection section;
    section.CreateFromPicture(FourColours(width, height).view());
    const std::string path = folder.File("four " + std::to_string(width) + ".jpg");
    ASSERT_TRUE(SaveJpegFile(section, path, 100, *library, dialogs, "Title"));

    const Result<Picture> read = codec->Load(path);
    ASSERT_TRUE(read.ok()) << read.status.message;
    const PixelView picture = (*read)->view();
    ASSERT_EQ(picture.width, width);
    ASSERT_EQ(picture.height, height);
    for (int row : {0, 1}) {
      for (int column : {0, 1}) {
        const std::uint8_t* corner = picture.at(column * (width - 1), row * (height - 1));
        for (int channel = 0; channel < 3; ++channel) {
          EXPECT_NEAR(corner[channel], kCorners[row][column][channel], 8)
              << "row " << row << ", column " << column << ", channel " << channel;
        }
      }
    }
  }
}

TEST(JpegRoundTripTest, AFolderThatIsMissingIsAFailedWrite) {
  const std::unique_ptr<JpegLibrary> library = MakeSystemJpegLibrary();
  const TempFolder folder;
  ScriptedDialogs dialogs;
  cDIBSection section;
  ASSERT_TRUE(section.Create(8, 8));
  EXPECT_FALSE(
      SaveJpegFile(section, folder.File("none\\photo.jpg"), 80, *library, dialogs, "Title"));
  EXPECT_TRUE(dialogs.shown.empty());
}

}  // namespace
}  // namespace tarnwell
