#include "imaging/jpeg_huffman.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>

namespace tarnwell {
namespace {

TEST(FitHuffmanTableTest, CodesEverySymbolInSixteenBitsAtMostAndLeavesAllOnesFree) {
  for (const HuffmanTable& recommended : kHuffmanTables) {
    // Each twice as frequent as the one before: without a limit, codes as long as there are
    // symbols.
    std::array<std::uint32_t, 256> steep = {}, level = {}, none = {};
    for (std::size_t i = 0; i < recommended.symbols.size(); ++i) {
      steep[recommended.symbols[i]] = i < 30 ? 1u << i : 0;
      level[recommended.symbols[i]] = 1000;
    }
    for (const auto& counts : {steep, level, none}) {
      const FittedHuffmanTable table = FitHuffmanTable(recommended, counts);
      std::vector<std::uint8_t> symbols = table.symbols;
      std::vector<std::uint8_t> expected(recommended.symbols.begin(), recommended.symbols.end());
      std::sort(symbols.begin(), symbols.end());
      std::sort(expected.begin(), expected.end());
      EXPECT_EQ(symbols, expected);
      EXPECT_EQ(std::accumulate(table.counts.begin(), table.counts.end(), std::size_t{0}),
                symbols.size());
      // Of 2^16 codes of 16 bits, a shorter one takes its share.
      int taken = 0;
      for (int length = 1; length <= 16; ++length) {
        taken += table.counts[length - 1] << (16 - length);
      }
      EXPECT_LT(taken, 1 << 16);
    }
  }
}

TEST(FitHuffmanTableTest, GivesFrequentSymbolsTheShortCodes) {
  std::array<std::uint32_t, 256> counts = {};
  counts[7] = 1000;
  counts[3] = 400;
  counts[9] = 300;
  const FittedHuffmanTable table = FitHuffmanTable(kHuffmanTables[0], counts);
  EXPECT_EQ(table.counts[0], 1);
  EXPECT_EQ(table.counts[1], 1);
  EXPECT_EQ(table.counts[2], 1);
  EXPECT_EQ(std::vector<std::uint8_t>(table.symbols.begin(), table.symbols.begin() + 3),
            (std::vector<std::uint8_t>{7, 3, 9}));
}

}  // namespace
}  // namespace tarnwell
