#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <sstream>

#include "console/console_host.h"
#include "console/folder_progress.h"
#include "console/program.h"
#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/pictures.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

using Names = std::vector<std::string>;

struct DirectoryTest : testing::Test {
  TempFolder folder;
  std::unique_ptr<PictureCodec> codec = MakeSystemPictureCodec();
  std::ostringstream out, err;
  ConsoleHost host{out, err};

  int Directory(const std::string& name, Names words = {}) {
    words.insert(words.begin(), {"directory", name.empty() ? folder.path() : folder.File(name),
                                 "--program-folder", folder.File("program")});
    err.str("");
    return RunProgram(words, host);
  }
  void WriteBitmap(const std::string& name, int width, unsigned seed) {
    const auto picture = NoisyPicture(width, 30, seed);
    const Status written = codec->SaveBitmap(folder.File(name), picture->view());
    ASSERT_TRUE(written.ok()) << written.message;
  }
};

// Two hundred photos of three kinds and many sizes, every tenth damaged, many that want one name.
TEST_F(DirectoryTest, ManyMixedPhotosGiveTheSameFilesWithAnyNumberOfThreads) {
  for (const char* batch : {"one\\", "four\\"}) {
    folder.MakeFolder(batch);
    for (int i = 0; i < 200; ++i) {
      const std::string name = batch + std::to_string(i / 3);
      if (i % 10 == 7) {
        folder.Write(name + ".jpeg", BytesOf(kBaselineJpeg).substr(0, 300 - i));
      } else if (i % 3 == 0) {
        WriteBitmap(name + ".BMP", 20 + i, i);
      } else {
        folder.Write(name + (i % 3 == 1 ? ".jpg" : ".gif"), BytesOf(kProgressiveJpeg));
      }
    }
  }
  EXPECT_EQ(Directory("one", {"--threads", "1"}), 1);
  EXPECT_NE(err.str().find("180 of 200 photos"), std::string::npos) << err.str();
  EXPECT_EQ(std::ranges::count(err.str(), '\n'), 21);
  EXPECT_EQ(Directory("four\\0.BMP", {"--threads", "4", "--quiet"}), 1);
  EXPECT_EQ(std::ranges::count(err.str(), '\n'), 20);

  const Names saved = folder.Names("one\\TWout");
  EXPECT_EQ(saved.size(), 180u);
  EXPECT_EQ(folder.Names("four\\TWout"), saved);
  for (const std::string& name : saved) {
    EXPECT_EQ(folder.Read("four\\TWout\\" + name), folder.Read("one\\TWout\\" + name)) << name;
  }
}

TEST_F(DirectoryTest, APhotoOfTheSameNameIsNumberedInTheOrderOfTheList) {
  WriteBitmap("a.bmp", 40, 1);
  folder.Write("A.jpg", BytesOf(kBaselineJpeg));
  folder.Write("notes.txt", "");
  EXPECT_EQ(Directory(""), 0) << err.str();
  EXPECT_EQ(folder.Names("TWout"), (Names{"A~1.jpg", "a.jpg"}));
  EXPECT_EQ((*codec->Load(folder.File("TWout\\A~1.jpg")).value)->width(), 16);
  EXPECT_FALSE(folder.Holds("program\\Cameras\\Default\\Default\\Smart Data.tsd"));
}

TEST_F(DirectoryTest, AnInterruptLeavesNoHalfPhotoAndEndsWithItsCode) {
  for (int i = 0; i < 5; ++i) WriteBitmap("p" + std::to_string(i) + ".bmp", 200, i);
  std::atomic<int> looks = 0;
  host.interrupted = [&] { return ++looks > 600; };
  EXPECT_EQ(Directory("", {"--threads", "1"}), kInterrupted);
  const Names saved = folder.Names("TWout");
  EXPECT_LT(saved.size(), 5u);
  for (const std::string& name : saved) EXPECT_EQ(name.front(), 'p');
}

TEST_F(DirectoryTest, AFolderThatIsNotThereIsNamed) {
  EXPECT_EQ(Directory("nowhere"), 1);
  EXPECT_NE(err.str().find("nowhere: no such folder"), std::string::npos) << err.str();
}

TEST_F(DirectoryTest, ATerminalSeesHowFarTheFolderIs) {
  for (const char* name : {"a.bmp", "b.bmp", "c.bmp"}) WriteBitmap(name, 40, 1);
  host.err_is_terminal = true;
  EXPECT_EQ(Directory(""), 0);
  EXPECT_NE(err.str().find("photo 3 of 3, 0:00 left"), std::string::npos) << err.str();
}

TEST(FolderProgressTest, DurationsAreShort) {
  EXPECT_EQ(ShownDuration(7), "0:07");
  EXPECT_EQ(ShownDuration(754), "12:34");
  EXPECT_EQ(ShownDuration(3723), "1:02:03");
}

}  // namespace
}  // namespace tarnwell
