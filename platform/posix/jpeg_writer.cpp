#include "platform/posix/jpeg_writer.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <new>
#include <vector>

#include "engine/pass.h"
#include "imaging/jpeg_huffman.h"
#include "imaging/jpeg_stripes.h"

namespace tarnwell {
namespace {

// Of so many rows of units one is looked at before the tables are chosen; of more in a picture that
// has few units.
constexpr int kUnitRowsPerSample = 24;
constexpr int kLeastUnits = 250;

using Tables = std::array<FittedHuffmanTable, 4>;

// Empty when memory does not suffice.
std::string EncodeRows(const JpegRows& rows, const JpegCoding& coding) {
  JpegBytes file;
  const bool encoded = EncodeJpegRows(rows, coding, file);
  const std::unique_ptr<unsigned char, decltype(&std::free)> owner(file.data, &std::free);
  if (!encoded) return {};
  return std::string(reinterpret_cast<const char*>(file.data), file.size);
}

// Huffman tables for this picture. They make the file some percent smaller than the recommended
// ones; what the whole picture would tell over a sample is not worth encoding it twice. Empty when
// memory does not suffice.
std::optional<Tables> FitTables(const JpegRows& rows, int unit_side, JpegCoding coding) {
  const int unit_rows = (rows.height + unit_side - 1) / unit_side;
  const int units_across = (rows.width + unit_side - 1) / unit_side;
  JpegRows sample = rows;
  sample.band = unit_side;
  sample.every = std::clamp(unit_rows * units_across / kLeastUnits, 1, kUnitRowsPerSample);
  const int sampled_rows = (unit_rows + sample.every - 1) / sample.every;
  const bool last_is_sampled = (unit_rows - 1) % sample.every == 0;
  sample.height =
      sampled_rows * unit_side - (last_is_sampled ? unit_rows * unit_side - rows.height : 0);
  coding.restart_interval = 0;
  const std::string file = EncodeRows(sample, coding);
  if (file.empty()) return std::nullopt;
  const SymbolCounts counts =
      CountSymbols(CodedDataOf(file), units_across * sampled_rows, coding.half_chrominance ? 4 : 1);
  Tables tables;
  for (int i = 0; i < 4; ++i) tables[i] = FitHuffmanTable(kHuffmanTables[i], counts[i]);
  return tables;
}

}  // namespace

std::optional<std::string> EncodeJpegPicture(const JpegRows& rows, int quality,
                                             bool half_chrominance, int threads,
                                             const GoOn& go_on) try {
  const int unit_side = half_chrominance ? 16 : 8;
  const JpegStripes stripes = JpegStripesOf(rows.width, rows.height, unit_side);
  JpegCoding coding = {quality, half_chrominance, stripes.restart_interval};
  const std::optional<Tables> tables = FitTables(rows, unit_side, coding);
  if (!tables) return std::nullopt;
  coding.tables = tables->data();
  std::vector<std::string> files(stripes.count);
  std::atomic<bool> failed = false;
  const auto encode = [&](int number) {
    JpegRows stripe = rows;
    stripe.top += static_cast<std::ptrdiff_t>(number) * stripes.rows * rows.step;
    stripe.height = std::min(stripes.rows, rows.height - number * stripes.rows);
    try {
      files[number] = EncodeRows(stripe, coding);
    } catch (const std::bad_alloc&) {
    }
    if (files[number].empty()) failed = true;
  };
  const bool all = ForEachPart(stripes.count, 1, threads, encode, [&](int done) {
    return !failed && go_on(1.0 * done / stripes.count);
  });
  if (!all || failed) return std::nullopt;
  if (stripes.count == 1) return std::move(files.front());
  return JoinJpegStripes(files, rows.height);
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

}  // namespace tarnwell
