#include <atomic>
#include <gtest/gtest.h>

#include "tests/support/console_desk.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

using DirectoryTest = ConsoleDesk;

// Photos of three kinds and many sizes, every tenth damaged, many that want one name.
TEST_F(DirectoryTest, ManyMixedPhotosGiveTheSameFilesWithAnyNumberOfThreads) {
  for (const char* batch : {"one\\", "four\\"}) {
    folder.MakeFolder(batch);
    for (int i = 0; i < 60; ++i) {
      const std::string name = batch + std::to_string(i / 3);
      if (i % 10 == 7) {
        folder.Write(name + ".jpeg", kBaselineJpeg.substr(0, 300 - i));
      } else if (i % 3 == 0) {
        WriteBitmap(name + ".BMP", 20 + i, 30, i);
      } else {
        folder.Write(name + (i % 3 == 1 ? ".jpg" : ".gif"), kProgressiveJpeg);
      }
    }
  }
  EXPECT_EQ(Run({"directory", "@one", "--threads", "1"}), 1);
  EXPECT_TRUE(ErrHas("54 of 60 photos")) << err.str();
  EXPECT_EQ(ErrLines(), 7);
  EXPECT_EQ(Run({"directory", "@four\\0.BMP", "--threads", "4", "--quiet"}), 1);
  EXPECT_EQ(ErrLines(), 6);

  const Words saved = folder.Names("one\\TWout");
  EXPECT_EQ(saved.size(), 54u);
  EXPECT_EQ(folder.Names("four\\TWout"), saved);
  for (const std::string& name : saved) {
    EXPECT_EQ(folder.Read("four\\TWout\\" + name), folder.Read("one\\TWout\\" + name)) << name;
  }
}

TEST_F(DirectoryTest, TheSummaryCounts) {
  const auto summary = [&](const std::string& text, const std::string& place) {
    return text + files->Display(folder.File(place)) + "\n";
  };
  folder.MakeFolder("album");
  EXPECT_EQ(Run({"directory", "@album"}), 0);
  EXPECT_EQ(err.str(), summary("There are no photos in ", "album\\"));
  EXPECT_EQ(folder.Names("album"), Words{});
  WriteBitmap("album\\a.bmp", 40, 30);
  EXPECT_EQ(Run({"directory", "@album"}), 0);
  EXPECT_EQ(err.str(), summary("1 of 1 photo was corrected and saved in ", "album\\TWout\\"));
}

TEST_F(DirectoryTest, ProgressIsDrawnOnATerminalUnlessItIsToBeQuiet) {
  WriteBitmap("a.bmp", 40, 30);
  host.err_is_terminal = true;
  EXPECT_EQ(Run({"directory", "@"}), 0);
  EXPECT_TRUE(ErrHas("\r\x1b[K1 of 1 photo was corrected")) << "the line is wiped at the end";
  EXPECT_EQ(Run({"directory", "@", "--quiet"}), 0);
  EXPECT_EQ(err.str(), "");
}

TEST_F(DirectoryTest, APhotoOfTheSameNameIsNumberedInTheOrderOfTheList) {
  WriteBitmap("a.bmp", 40, 30);
  folder.Write("A.jpg", kBaselineJpeg);
  folder.Write("notes.txt", "");
  EXPECT_EQ(Run({"directory", "@"}), 0) << err.str();
  EXPECT_EQ(folder.Names("TWout"), (Words{"A~1.jpg", "a.jpg"}));
  EXPECT_EQ(Load("TWout\\A~1.jpg")->width(), 16);
  EXPECT_FALSE(folder.Holds("program\\Cameras\\Default\\Default\\Smart Data.tsd"));
}

TEST_F(DirectoryTest, AnInterruptLeavesNoHalfPhotoAndEndsWithItsCode) {
  for (int i = 0; i < 5; ++i) WriteBitmap("p" + std::to_string(i) + ".bmp", 200, 30, i);
  std::atomic<int> looks = 0;
  host.interrupted = [&] { return ++looks > 600; };
  EXPECT_EQ(Run({"directory", "@", "--threads", "1"}), kInterrupted);
  const Words saved = folder.Names("TWout");
  EXPECT_LT(saved.size(), 5u);
  for (const std::string& name : saved) EXPECT_EQ(name.front(), 'p');
}

}  // namespace
}  // namespace tarnwell
