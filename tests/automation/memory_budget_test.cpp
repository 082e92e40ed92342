#include "automation/memory_budget.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>

#include "automation/photo_workers.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

TEST(MemoryBudgetTest, APhotoCountsByItsHeaders) {
  const std::string photo = BytesOf(kBaselineJpeg);
  const std::string damaged = photo.substr(0, 100);
  EXPECT_EQ(MemoryToCorrect(photo) - MemoryToCorrect(damaged),
            16u * 16u * 16u + photo.size() - damaged.size());
}

TEST(MemoryBudgetTest, NeverMoreThanTheBudgetOrOneAlone) {
  // In the order of the photos: small ones of 30, and one larger than all there is.
  const std::vector<std::uint64_t> sizes = {30, 30, 30, 30, 500, 30, 30, 30, 30, 30};
  MemoryBudget budget(100);
  EXPECT_EQ(budget.Fitting(30), 3);
  EXPECT_EQ(budget.Fitting(500), 1);
  std::atomic<std::uint64_t> in_work = 0;
  std::atomic<int> done = 0;
  std::vector<std::size_t> begun;
  std::atomic<bool> too_much = false;
  ForEachPhoto(
      sizes.size(), 8,
      [&](std::size_t i) {
        budget.Take(sizes[i]);
        const std::uint64_t now = in_work += sizes[i];
        if (now > 100 && now != sizes[i]) too_much = true;
        begun.push_back(i);
        return i != 8;  // the ninth is not begun, nor is any after it
      },
      [&](std::size_t i) {
        ++done;
        in_work -= sizes[i];
        budget.GiveBack(sizes[i]);
      });
  EXPECT_FALSE(too_much);
  EXPECT_EQ(done, 8);
  EXPECT_TRUE(std::ranges::is_sorted(begun));
}

}  // namespace
}  // namespace tarnwell
