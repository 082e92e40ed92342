#include <gtest/gtest.h>
#include <pthread.h>

#include "automation/photo_workers.h"
#include "engine/pass.h"

namespace tarnwell {
namespace {

// While it lives, threads ask for a stack that no system has.
class NoMoreThreads {
 public:
  NoMoreThreads() {
    pthread_getattr_default_np(&usual_);
    pthread_attr_t huge = usual_;
    pthread_attr_setstacksize(&huge, std::size_t{1} << 50);
    EXPECT_EQ(pthread_setattr_default_np(&huge), 0);
  }
  ~NoMoreThreads() {
    pthread_setattr_default_np(&usual_);
    pthread_attr_destroy(&usual_);
  }

 private:
  pthread_attr_t usual_;
};

TEST(NoThreadsTest, TheCallingThreadDoesTheWorkAlone) {
  const NoMoreThreads none;
  int parts = 0, photos = 0;
  EXPECT_TRUE(ForEachPart(
      50, 16, 3, [&](int) { ++parts; }, [](int) { return true; }));
  ForEachPhoto(
      5, 3, [](std::size_t) { return true; }, [&](std::size_t) { ++photos; });
  EXPECT_EQ(parts, 50);
  EXPECT_EQ(photos, 5);
}

}  // namespace
}  // namespace tarnwell
