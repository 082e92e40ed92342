#include "shell/long_work.h"

#include <chrono>
#include <gtest/gtest.h>
#include <semaphore>
#include <stdexcept>
#include <thread>

#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

constexpr char kJob[] = "Counting Stars...";

void WorkUntilStopped(const GoOn& go_on) {
  while (go_on(0.5)) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

TEST(LongWorkTest, LetsEventsInWhileTheWorkWaits) {
  TestWindow window;
  std::counting_semaphore<3> looks(0);
  window.events.on_run = [&](int run) {
    if (run <= 3) looks.release();
  };
  bool done = false;
  EXPECT_TRUE(DoBesideEvents(window.form, kJob, [&](const GoOn& go_on) {
    for (int i = 0; i < 3; ++i) looks.acquire();
    done = go_on(1);
  }));
  EXPECT_TRUE(done);
}

TEST(LongWorkTest, OnlyACancelDuringTheWorkEndsItAndNoneIsForgotten) {
  for (const bool before : {false, true}) {
    for (const bool during : {false, true}) {
      SCOPED_TRACE(testing::Message() << before << during);
      TestWindow window;
      window.app.cancel_requested = before;
      window.events.on_run = [&](int) {
        if (during) window.app.cancel_requested = true;
      };
      EXPECT_EQ(DoBesideEvents(window.form, kJob,
                               [&](const GoOn& go_on) {
                                 if (during) return WorkUntilStopped(go_on);
                                 EXPECT_TRUE(go_on(0));
                               }),
                !during);
      EXPECT_EQ(window.app.cancel_requested, before || during);
    }
  }
}

TEST(LongWorkTest, ShowsHowFarItIsOnlyWhenItTakesLong) {
  TestWindow window;
  window.events.on_run = [&](int run) {
    EXPECT_EQ(window.progress.windows, run <= 31 ? 0 : 1) << run;
    if (run == 33) {
      EXPECT_EQ(window.progress.lblJob, kJob);
      EXPECT_EQ(window.progress.percentage, 50);
      window.app.cancel_requested = true;
    }
    window.clock.now += 10'000'000;
  };
  EXPECT_FALSE(DoBesideEvents(window.form, kJob, WorkUntilStopped));
  EXPECT_EQ(window.progress.windows, 0);
}

TEST(LongWorkTest, HandsOnWhatTheWorkThrows) {
  TestWindow window;
  EXPECT_THROW(
      DoBesideEvents(window.form, kJob, [](const GoOn&) { throw std::runtime_error("no"); }),
      std::runtime_error);
}

}  // namespace
}  // namespace tarnwell
