#include <gtest/gtest.h>
#include <utility>

#include "tests/support/console_desk.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

struct WatchTest : ConsoleDesk {
  WatchTest() {
    for (const char* name : {"in", "out", "done"}) folder.MakeFolder(name);
  }
  int Watch(Words words) {
    words.insert(words.begin(),
                 {"watch", "--input", "@in", "--output", "@out", "--processed", "@done"});
    return Run(words);
  }
};

TEST_F(WatchTest, OnceTakesWhatIsThereWithSeveralThreads) {
  for (int i = 0; i < 30; ++i) {
    folder.Write("in\\" + std::to_string(i) + ".jpg", i % 10 == 5 ? "damaged" : kBaselineJpeg);
  }
  folder.Write("in\\x.y.jpg", kGreyJpeg);
  folder.Write("in\\x.y~1.y.jpg", kProgressiveJpeg);
  folder.Write("out\\x.y.jpg", "kept");
  EXPECT_EQ(Watch({"--once", "--threads", "4"}), 1);
  EXPECT_EQ(folder.Names("in"), (Words{"15.jpg", "25.jpg", "5.jpg"}));
  EXPECT_EQ(folder.Names("done").size(), 29u);
  EXPECT_EQ(folder.Names("out").size(), 30u);
  EXPECT_EQ(folder.Read("out\\x.y.jpg"), "kept");
  // Names go to the photos in their order, however many threads there are.
  EXPECT_TRUE(folder.Holds("out\\x.y~1.y.jpg"));
  EXPECT_TRUE(folder.Holds("out\\x.y~1.y~1.y~1.y.jpg"));
  // A line for each photo, and one for the wait at the end.
  EXPECT_EQ(ErrLines(), 33) << err.str();
}

TEST_F(WatchTest, AStopEndsItAfterThePhotoInHand) {
  for (int i = 0; i < 5; ++i) {
    folder.Write("in\\" + std::to_string(i) + ".jpg", kBaselineJpeg);
  }
  host.interrupted = [&] { return !folder.Names("out").empty(); };
  EXPECT_EQ(Watch({"--threads", "1"}), 0);
  EXPECT_EQ(folder.Names("out"), Words{"0.jpg"});
  EXPECT_EQ(folder.Names("done"), Words{"0.jpg"});
  EXPECT_TRUE(ErrHas("Ending after the photos in hand; Ctrl+C again ends at once.")) << err.str();
  EXPECT_EQ(Watch({"--threads", "1", "--once"}), 130) << "and four photos wait";
}

// What could not be read at first, as a copy that had stalled, counts by how it ended.
TEST_F(WatchTest, WhatWasReadInTheEndIsNoFailure) {
  folder.Write("in\\a.jpg", std::string(kBaselineJpeg).substr(0, 300));
  bool whole = false;
  host.interrupted = [&] {
    if (ErrLines() > 0 && !std::exchange(whole, true)) folder.Write("in\\a.jpg", kBaselineJpeg);
    return !folder.Names("done").empty();
  };
  EXPECT_EQ(Watch({"--quiet"}), 0) << err.str();
  EXPECT_NE(err.str().find("breaks off"), std::string::npos) << err.str();
}

}  // namespace
}  // namespace tarnwell
