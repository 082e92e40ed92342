#include "platform/picture_codec.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <memory>

#include "imaging/jpeg_library.h"
#include "platform/files.h"
#include "platform/system.h"
#include "tests/support/gif_builder.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

bool Near(const TestPixel& a, const TestPixel& b, int tolerance) {
  return std::abs(a.red - b.red) <= tolerance && std::abs(a.green - b.green) <= tolerance &&
         std::abs(a.blue - b.blue) <= tolerance;
}

class PictureCodecTest : public testing::Test {
 protected:
  Picture LoadBytes(const std::string& bytes, const std::string& name = "photo.jpg") {
    const Result<Picture> loaded = codec->Load(folder.Write(name, bytes));
    EXPECT_TRUE(loaded.ok()) << loaded.status.message;
    return loaded.ok() ? *loaded : std::make_shared<PixelArray>(1, 1);
  }

  TempFolder folder;
  std::unique_ptr<PictureCodec> codec = MakeSystemPictureCodec();
};

TEST_F(PictureCodecTest, ReadsJpegOfEveryCommonKind) {
  const TestPixel quarters[2][2] = {{{200, 30, 40}, {30, 160, 60}},
                                    {{20, 50, 180}, {250, 250, 250}}};
  for (const std::string& bytes : {kBaselineJpeg, kProgressiveJpeg, kGreyJpeg}) {
    const Picture picture = LoadBytes(bytes);
    const PixelView view = picture->view();
    ASSERT_EQ(view.width, 16);
    ASSERT_EQ(view.height, 16);
    for (int y = 0; y < 16; ++y) {
      for (int x = 0; x < 16; ++x) {
        const TestPixel wanted = quarters[y / 8][x / 8], found = PixelAt(view, x, y);
        if (bytes == kGreyJpeg) {
          EXPECT_EQ(found, (TestPixel{found.red, found.red, found.red}));
          EXPECT_EQ(found.red > 240, wanted.red > 240);
        } else {
          EXPECT_TRUE(Near(found, wanted, 3)) << found << wanted;
        }
        EXPECT_EQ(view.at(x, y)[kUnused], 0);
      }
    }
  }
}

const std::vector<GifColour> kFourColours = {{10, 20, 30}, {200, 0, 0}, {0, 200, 0}, {0, 0, 200}};
const TestPixel kWhite{255, 255, 255};

TEST_F(PictureCodecTest, ShowsTheFirstFrameOfAGifOnItsScreenOnWhite) {
  const std::string bytes = GifBuilder(4, 3, kFourColours)
                                .Add({.left = 1,
                                      .top = 1,
                                      .width = 2,
                                      .height = 2,
                                      .indices = {1, 2, 0, 3},
                                      .transparent = 2})
                                .Add({.width = 4,
                                      .height = 3,
                                      .indices = {1, 1, 1, 1, 1, 1,  //
                                                  1, 1, 1, 1, 1, 1}})
                                .Bytes();
  const Picture picture = LoadBytes(bytes, "a.gif");
  const PixelView view = picture->view();
  ASSERT_EQ(view.width, 4);
  ASSERT_EQ(view.height, 3);
  for (int y = 0; y < 3; ++y) {
    for (int x = 0; x < 4; ++x) {
      TestPixel wanted = kWhite;
      if (x == 1 && y == 1) wanted = {200, 0, 0};
      if (x == 1 && y == 2) wanted = {10, 20, 30};
      if (x == 2 && y == 2) wanted = {0, 0, 200};
      EXPECT_EQ(PixelAt(view, x, y), wanted);
    }
  }
}

TEST_F(PictureCodecTest, ReadsInterlacedGifRowsInTheirPlaces) {
  GifFrame frame{.width = 1, .height = 11, .indices = {0, 1, 2, 3, 0, 1, 2, 3, 3, 1, 2}};
  const Picture plain = LoadBytes(GifBuilder(1, 11, kFourColours).Add(frame).Bytes(), "a.gif");
  frame.interlaced = true;
  const Picture interlaced = LoadBytes(GifBuilder(1, 11, kFourColours).Add(frame).Bytes(), "b.gif");
  EXPECT_EQ(*interlaced, *plain);
  EXPECT_EQ(PixelAt(plain->view(), 0, 8), (TestPixel{0, 0, 200}));
  EXPECT_EQ(PixelAt(plain->view(), 0, 9), (TestPixel{200, 0, 0}));
}

// Counts the questions whether to go on; the one of this number is answered with no.
struct CountedGoOn {
  int asked = 0;
  int last = 0;  // 0: none

  GoOn Ask() {
    return [this](double done) {
      EXPECT_GE(done, 0);
      EXPECT_LE(done, 1);
      return ++asked < last || last == 0;
    };
  }
};

// Long enough for many questions; a cancel at any of them ends the work with nothing made.
TEST_F(PictureCodecTest, CanBeCancelledEveryFewRows) {
  constexpr int kWidth = 40, kHeight = 1500, kLeastQuestions = kHeight / 100;
  const auto picture = NoisyPicture(kWidth, kHeight, 1);
  const std::unique_ptr<JpegLibrary> jpeg = MakeSystemJpegLibrary();
  GifFrame frame{.width = kWidth, .height = kHeight, .indices = {}};
  frame.indices.resize(kWidth * kHeight, 1);
  const std::string gif = GifBuilder(kWidth, kHeight, kFourColours).Add(frame).Bytes();
  ASSERT_TRUE(codec->SaveBitmap(folder.File("a.bmp"), picture->view()).ok());
  ASSERT_TRUE(jpeg->WritePicture(folder.File("a.jpg"), {picture->view(), 80}).ok());

  const struct {
    const char* name;
    std::function<Status(const GoOn&)> work;
    int least;  // questions
  } kRows[] = {
      {"read a bitmap",
       [&](auto& go_on) { return codec->Load(folder.File("a.bmp"), go_on).status; },
       kLeastQuestions},
      {"read a JPEG file",
       [&](auto& go_on) { return codec->Load(folder.File("a.jpg"), go_on).status; },
       kLeastQuestions},
      {"read a GIF file", [&](auto& go_on) { return codec->Decode(gif, "a.gif", go_on).status; },
       kLeastQuestions},
      {"write a bitmap",
       [&](auto& go_on) {
         return codec->SaveBitmap(folder.File("new.bmp"), picture->view(), go_on);
       },
       kLeastQuestions},
      {"write a JPEG file",
       [&](auto& go_on) {
         return jpeg->WritePicture(folder.File("new.jpg"),
                                   {picture->view(), 80, true, 2, {}, go_on});
       },
       1},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    CountedGoOn all;
    EXPECT_TRUE(row.work(all.Ask()).ok());
    EXPECT_GE(all.asked, row.least);
    static_cast<void>(MakeSystemFiles()->Delete(folder.File("new.bmp")));
    static_cast<void>(MakeSystemFiles()->Delete(folder.File("new.jpg")));
    for (const int last : {1, all.asked / 2, all.asked}) {
      CountedGoOn some = {0, std::max(last, 1)};
      EXPECT_EQ(row.work(some.Ask()).failure, Failure::kCancelled) << last << " of " << all.asked;
      EXPECT_FALSE(folder.Holds("new.bmp") || folder.Holds("new.jpg"));
    }
  }
}

std::string CutInHalf(const std::string& bytes) { return bytes.substr(0, bytes.size() / 2); }

TEST_F(PictureCodecTest, RefusesWhatIsNoWholePicture) {
  const GifFrame dot{.width = 1, .height = 1, .indices = {1}};
  const GifFrame many{.width = 64, .height = 64, .indices = std::vector<unsigned char>(4096, 1)};
  const struct {
    const char* name;
    std::string bytes;
    Failure failure;
  } kCases[] = {
      {"text", "Not a picture at all, but long enough to be one.", Failure::kUnsupported},
      {"half a progressive JPEG", CutInHalf(kProgressiveJpeg), Failure::kDamaged},
      {"JPEG without its last pixels", kBaselineJpeg.substr(0, kBaselineJpeg.size() - 6),
       Failure::kDamaged},
      {"half a GIF", CutInHalf(GifBuilder(64, 64, kFourColours).Add(many).Bytes()),
       Failure::kDamaged},
      {"GIF without a frame", GifBuilder(4, 4, kFourColours).Bytes(), Failure::kDamaged},
      {"GIF too wide", GifBuilder(32768, 1, kFourColours).Add(dot).Bytes(), Failure::kTooLarge},
  };
  const auto files = MakeSystemFiles();
  for (const auto& c : kCases) {
    const std::string path = folder.Write("photo.jpg", c.bytes);
    const Result<Picture> loaded = codec->Load(path);
    EXPECT_EQ(loaded.status.failure, c.failure) << c.name << ": " << loaded.status.message;
    EXPECT_TRUE(loaded.status.message.starts_with(files->Display(path) + ": ")) << c.name;
  }
  EXPECT_EQ(codec->Load(folder.File("missing.jpg")).status.failure, Failure::kNotFound);
  EXPECT_FALSE(codec->Load(folder.Write("empty.jpg", "")).ok());
  EXPECT_FALSE(codec->Load(folder.path()).ok());
}

TEST_F(PictureCodecTest, FailedBitmapSavesLeaveWhatWasThere) {
  const PixelArray pixels(2, 2);
  const std::string taken = folder.Write("taken.bmp", "mine");
  EXPECT_EQ(codec->SaveBitmap(taken, pixels.view()).failure, Failure::kExists);
  EXPECT_EQ(folder.Read("taken.bmp"), "mine");
  EXPECT_EQ(codec->SaveBitmap(folder.File("no\\a.bmp"), pixels.view()).failure, Failure::kNotFound);
  EXPECT_FALSE(codec->SaveBitmap(folder.File("empty.bmp"), {}).ok());
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"taken.bmp"});
}

}  // namespace
}  // namespace tarnwell
