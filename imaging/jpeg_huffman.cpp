#include "imaging/jpeg_huffman.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

namespace tarnwell {
namespace {

constexpr int kLongestCode = 16;

// The coded data as bits, the zero bytes behind 0xFF left out.
class BitReader {
 public:
  explicit BitReader(std::string_view data) : data_(data) {}

  // The next 16 bits, without going on.
  unsigned Peek() {
    while (count_ < kLongestCode) {
      pending_ = pending_ << 8 | NextByte();
      count_ += 8;
    }
    return static_cast<unsigned>(pending_ >> (count_ - kLongestCode)) & 0xFFFF;
  }
  // At most 16.
  void Skip(int bits) {
    Peek();
    count_ -= bits;
  }

 private:
  unsigned NextByte() {
    if (at_ >= data_.size()) return 0;
    const auto byte = static_cast<std::uint8_t>(data_[at_++]);
    if (byte == 0xFF) ++at_;
    return byte;
  }

  std::string_view data_;
  std::size_t at_ = 0;
  std::uint64_t pending_ = 0;
  int count_ = 0;
};

// Which symbol a code stands for, found by the code's first bits where it is short.
class SymbolReader {
 public:
  explicit SymbolReader(const HuffmanTable& table) : symbols_(table.symbols) {
    unsigned code = 0;
    std::size_t at = 0;
    for (int length = 1; length <= kLongestCode; ++length, code <<= 1) {
      const int count = table.counts[length - 1];
      first_symbol_[length] = static_cast<int>(at) - static_cast<int>(code);
      for (int i = 0; i < count; ++i, ++code, ++at) {
        if (length > kShort) continue;
        const unsigned first = code << (kShort - length);
        std::fill_n(short_.begin() + first, 1u << (kShort - length),
                    Short{static_cast<std::uint8_t>(length), symbols_[at]});
      }
      end_[length] = code << (kLongestCode - length);
    }
  }

  std::uint8_t Read(BitReader& bits) const {
    const unsigned next = bits.Peek();
    const Short& found = short_[next >> (kLongestCode - kShort)];
    if (found.length > 0) {
      bits.Skip(found.length);
      return found.symbol;
    }
    int length = kShort + 1;
    while (length < kLongestCode && next >= end_[length]) ++length;
    bits.Skip(length);
    const int at = first_symbol_[length] + static_cast<int>(next >> (kLongestCode - length));
    return symbols_[std::clamp(at, 0, static_cast<int>(symbols_.size()) - 1)];
  }

 private:
  static constexpr int kShort = 8;
  struct Short {
    std::uint8_t length = 0;  // 0: the code is longer
    std::uint8_t symbol = 0;
  };

  std::span<const std::uint8_t> symbols_;
  std::array<Short, 1 << kShort> short_ = {};
  std::array<int, kLongestCode + 1> first_symbol_ = {};  // less the first code of that length
  std::array<unsigned, kLongestCode + 1> end_ = {};      // behind the last one, as 16 bits
};

// One component's tables, and what was met.
class BlockCounter {
 public:
  BlockCounter(int first_table, SymbolCounts& counts)
      : means_(kHuffmanTables[first_table]),
        rest_(kHuffmanTables[first_table + 1]),
        mean_counts_(counts[first_table]),
        rest_counts_(counts[first_table + 1]) {}

  void Count(BitReader& bits) {
    const std::uint8_t mean = means_.Read(bits);
    ++mean_counts_[mean];
    bits.Skip(mean);
    for (int i = 1; i < 64;) {
      const std::uint8_t symbol = rest_.Read(bits);
      ++rest_counts_[symbol];
      if (symbol == kEndOfBlock) return;
      bits.Skip(symbol & 15);
      i += (symbol >> 4) + 1;
    }
  }

 private:
  static constexpr int kEndOfBlock = 0;

  SymbolReader means_;
  SymbolReader rest_;
  std::array<std::uint32_t, 256>& mean_counts_;
  std::array<std::uint32_t, 256>& rest_counts_;
};

// How long the codes get: the two rarest groups of symbols are joined, again and again, and each
// join makes the codes of both one bit longer. Numbers of codes by length.
std::vector<int> LengthCounts(std::vector<std::uint64_t> weights) {
  const std::size_t count = weights.size();
  std::vector<int> lengths(count, 0);
  std::vector<std::size_t> group(count);  // a symbol's group is named after one of its symbols
  for (std::size_t i = 0; i < count; ++i) group[i] = i;
  for (std::size_t joins = 1; joins < count; ++joins) {
    std::size_t rarest = count, next = count;
    for (std::size_t i = 0; i < count; ++i) {
      if (weights[i] == 0) continue;
      if (rarest == count || weights[i] <= weights[rarest]) {
        next = rarest;
        rarest = i;
      } else if (next == count || weights[i] <= weights[next]) {
        next = i;
      }
    }
    weights[rarest] += weights[next];
    weights[next] = 0;
    for (std::size_t i = 0; i < count; ++i) {
      if (group[i] != rarest && group[i] != next) continue;
      group[i] = rarest;
      ++lengths[i];
    }
  }
  std::vector<int> counts(count + kLongestCode + 1, 0);
  for (const int length : lengths) ++counts[length];
  return counts;
}

// No code may be longer than 16 bits: two that are give their place to one of them, a bit shorter,
// and the other one moves beside a shorter code, which gets a bit longer for it.
void Shorten(std::vector<int>& counts) {
  for (std::size_t length = counts.size() - 1; length > kLongestCode; --length) {
    while (counts[length] > 0) {
      std::size_t shorter = length - 2;
      while (counts[shorter] == 0) --shorter;
      counts[length] -= 2;
      ++counts[length - 1];
      counts[shorter + 1] += 2;
      --counts[shorter];
    }
  }
}

}  // namespace

SymbolCounts CountSymbols(std::string_view data, int units, int luminance_blocks) {
  SymbolCounts counts = {};
  BitReader bits(data);
  BlockCounter luminance(0, counts), chrominance(2, counts);
  for (int unit = 0; unit < units; ++unit) {
    for (int block = 0; block < luminance_blocks; ++block) luminance.Count(bits);
    for (int block = 0; block < 2; ++block) chrominance.Count(bits);
  }
  return counts;
}

FittedHuffmanTable FitHuffmanTable(const HuffmanTable& recommended,
                                   const std::array<std::uint32_t, 256>& counts) {
  FittedHuffmanTable table;
  table.symbols.assign(recommended.symbols.begin(), recommended.symbols.end());
  std::stable_sort(table.symbols.begin(), table.symbols.end(),
                   [&](std::uint8_t a, std::uint8_t b) { return counts[a] > counts[b]; });
  // A symbol that was not met is rarer than any that was. No code may be all ones: that one goes to
  // a symbol that never comes, the rarest of all.
  std::vector<std::uint64_t> weights;
  for (const std::uint8_t symbol : table.symbols) {
    weights.push_back(std::uint64_t{counts[symbol]} * 1000 + 2);
  }
  weights.push_back(1);
  std::vector<int> lengths = LengthCounts(std::move(weights));
  Shorten(lengths);
  int longest = kLongestCode;
  while (lengths[longest] == 0) --longest;
  --lengths[longest];
  for (int length = 1; length <= kLongestCode; ++length) {
    table.counts[length - 1] = static_cast<std::uint8_t>(lengths[length]);
  }
  return table;
}

}  // namespace tarnwell
