#include "platform/pixel_memory.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tarnwell {
namespace {

TEST(PixelMemoryTest, IsZeroAndWritableToTheLastByteAroundThePageSizes) {
  for (const std::size_t bytes : {std::size_t{4}, std::size_t{409600}, std::size_t{4} << 20,
                                  (std::size_t{4} << 20) + 4, (std::size_t{6} << 20) - 4}) {
    std::uint8_t* memory = TakePixelMemory(bytes);
    ASSERT_NE(memory, nullptr);
    EXPECT_TRUE(std::all_of(memory, memory + bytes, [](std::uint8_t b) { return b == 0; }));
    std::fill_n(memory, bytes, std::uint8_t{255});
    ReturnPixelMemory(memory, bytes);
  }
}

}  // namespace
}  // namespace tarnwell
