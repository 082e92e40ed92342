#include "engine/pass.h"

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <numeric>
#include <vector>

namespace tarnwell {
namespace {

TEST(ForEachPartTest, DoesEveryPartOnceAndReportsEachOne) {
  for (const int threads : {1, 2, 5}) {
    for (const int count : {1, 15, 16, 17, 100}) {
      SCOPED_TRACE(testing::Message() << threads << " threads, " << count << " parts");
      std::vector<std::atomic<int>> visits(count);
      std::vector<int> reports;
      EXPECT_TRUE(ForEachPart(
          count, count % 2 ? 1 : 16, threads, [&](int part) { ++visits[part]; },
          [&](int done) {
            reports.push_back(done);
            return true;
          }));
      for (const auto& visited : visits) EXPECT_EQ(visited, 1);
      std::vector<int> every(count);
      std::iota(every.begin(), every.end(), 1);
      EXPECT_EQ(reports, every);
    }
  }
}

TEST(ForEachPartTest, BeginsNoPartAfterItWasStopped) {
  std::vector<int> worked;
  EXPECT_FALSE(ForEachPart(
      50, 16, 1, [&](int part) { worked.push_back(part); }, [](int done) { return done < 20; }));
  EXPECT_EQ(worked.size(), 20u);
  EXPECT_FALSE(ForEachPart(
      1, 16, 1, [](int) {}, [](int) { return false; }));
}

}  // namespace
}  // namespace tarnwell
