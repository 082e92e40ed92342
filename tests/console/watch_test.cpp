#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

#include "console/console_host.h"
#include "console/program.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

using Names = std::vector<std::string>;

struct WatchTest : testing::Test {
  TempFolder folder;
  std::ostringstream out, err;
  ConsoleHost host{out, err};

  WatchTest() {
    for (const char* name : {"in", "out", "done"}) folder.MakeFolder(name);
  }
  int Watch(Names words) {
    words.insert(words.begin(),
                 {"watch", "--input", folder.File("in"), "--output", folder.File("out"),
                  "--processed", folder.File("done"), "--program-folder", folder.File("program")});
    err.str("");
    return RunProgram(words, host);
  }
};

TEST_F(WatchTest, OnceTakesWhatIsThereWithSeveralThreads) {
  for (int i = 0; i < 30; ++i) {
    folder.Write("in\\" + std::to_string(i) + ".jpg",
                 i % 10 == 5 ? "damaged" : BytesOf(kBaselineJpeg));
  }
  folder.Write("in\\x.y.jpg", BytesOf(kGreyJpeg));
  folder.Write("in\\x.y~1.y.jpg", BytesOf(kProgressiveJpeg));
  folder.Write("out\\x.y.jpg", "kept");
  EXPECT_EQ(Watch({"--once", "--threads", "4"}), 1);
  EXPECT_EQ(folder.Names("in"), (Names{"15.jpg", "25.jpg", "5.jpg"}));
  EXPECT_EQ(folder.Names("done").size(), 29u);
  EXPECT_EQ(folder.Names("out").size(), 30u);
  EXPECT_EQ(folder.Read("out\\x.y.jpg"), "kept");
  EXPECT_TRUE(folder.Holds("out\\x.y~2.y.jpg") || folder.Holds("out\\x.y~1.y~1.y~1.y.jpg"));
  // A line for each photo, and one for the wait at the end.
  EXPECT_EQ(std::ranges::count(err.str(), '\n'), 33) << err.str();
}

TEST_F(WatchTest, AMissingFolderEndsOnceWithItsName) {
  std::filesystem::remove(folder.SystemPath("out"));
  EXPECT_EQ(Watch({"--once"}), 1);
  EXPECT_NE(err.str().find("out"), std::string::npos);
}

TEST_F(WatchTest, AStopEndsItAfterThePhotoInHand) {
  for (int i = 0; i < 5; ++i) {
    folder.Write("in\\" + std::to_string(i) + ".jpg", BytesOf(kBaselineJpeg));
  }
  host.interrupted = [&] { return !folder.Names("out").empty(); };
  EXPECT_EQ(Watch({"--threads", "1"}), 0);
  EXPECT_EQ(folder.Names("out"), Names{"0.jpg"});
  EXPECT_EQ(folder.Names("done"), Names{"0.jpg"});
}

}  // namespace
}  // namespace tarnwell
