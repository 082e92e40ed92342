#include "engine/column_pass.h"

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <vector>

namespace tarnwell {
namespace {

TEST(ForEachColumnTest, DoesEveryColumnOnceAndReportsEachOne) {
  for (const int threads : {1, 2, 5}) {
    for (const int width : {1, 15, 16, 17, 100}) {
      SCOPED_TRACE(testing::Message() << threads << " threads, " << width << " columns");
      std::vector<std::atomic<int>> visits(width);
      std::vector<int> reports;
      EXPECT_TRUE(ForEachColumn(
          width, threads, [&](int x) { ++visits[x]; },
          [&](int done) {
            reports.push_back(done);
            return true;
          }));
      for (const auto& count : visits) EXPECT_EQ(count, 1);
      std::vector<int> every(width);
      std::iota(every.begin(), every.end(), 1);
      EXPECT_EQ(reports, every);
    }
  }
}

TEST(ForEachColumnTest, BeginsNoColumnAfterItWasStopped) {
  std::vector<int> worked;
  EXPECT_FALSE(ForEachColumn(
      50, 1, [&](int x) { worked.push_back(x); }, [](int done) { return done < 20; }));
  EXPECT_EQ(worked.size(), 20u);
  EXPECT_FALSE(ForEachColumn(
      1, 1, [](int) {}, [](int) { return false; }));
}

}  // namespace
}  // namespace tarnwell
