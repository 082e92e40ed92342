#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "imaging/jpeg_tables.h"

namespace tarnwell {

// How often the symbols of each table occur, in the order of kHuffmanTables.
using SymbolCounts = std::array<std::array<std::uint32_t, 256>, 4>;

// Counts the symbols of `data`, the coded data of a baseline picture of three components that was
// encoded with kHuffmanTables and without restart markers: `units` units of `luminance_blocks`
// blocks (4 where the chrominance has half the resolution both ways, otherwise 1), and one block
// for each chrominance. Data that breaks off counts as zeros from there on.
SymbolCounts CountSymbols(std::string_view data, int units, int luminance_blocks);

// A table like HuffmanTable that owns its symbols.
struct FittedHuffmanTable {
  std::array<std::uint8_t, 16> counts = {};
  std::vector<std::uint8_t> symbols;
};

// The table that codes symbols which occur that often in the fewest bits. Every symbol of
// `recommended` gets a code, also those that were not met: the counts may come from a sample.
FittedHuffmanTable FitHuffmanTable(const HuffmanTable& recommended,
                                   const std::array<std::uint32_t, 256>& counts);

}  // namespace tarnwell
