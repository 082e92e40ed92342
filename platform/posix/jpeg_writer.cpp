#include "platform/posix/jpeg_writer.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <latch>
#include <new>
#include <utility>
#include <vector>

#include "engine/pass.h"
#include "imaging/jpeg_huffman.h"

namespace tarnwell {
namespace {

// Of so many rows of units one is looked at before the tables are chosen; of more in a picture that
// has few units.
constexpr int kUnitRowsPerSample = 24;
constexpr int kLeastUnits = 250;

// What a look at some of the picture's rows tells of the rest.
struct Sample {
  std::array<FittedHuffmanTable, 4> tables;
  std::size_t row_bytes = 0;  // of a row of units, encoded
};

// Empty when memory does not suffice.
EncodedBytes EncodeRows(const JpegRows& rows, const JpegCoding& coding) {
  JpegBytes file;
  const bool encoded = EncodeJpegRows(rows, coding, file);
  EncodedBytes bytes;
  bytes.data.reset(file.data);
  if (encoded) bytes.size = file.size;
  return bytes;
}

// Huffman tables for this picture. They make the file some percent smaller than the recommended
// ones; what the whole picture would tell over a sample is not worth encoding it twice. Nothing
// when memory does not suffice.
std::optional<Sample> LookAt(const JpegRows& rows, int unit_side, JpegCoding coding) {
  const int unit_rows = (rows.height + unit_side - 1) / unit_side;
  const int units_across = (rows.width + unit_side - 1) / unit_side;
  JpegRows sampled = rows;
  sampled.band = unit_side;
  sampled.every = std::clamp(unit_rows * units_across / kLeastUnits, 1, kUnitRowsPerSample);
  const int sampled_rows = (unit_rows + sampled.every - 1) / sampled.every;
  const bool last_is_sampled = (unit_rows - 1) % sampled.every == 0;
  sampled.height =
      sampled_rows * unit_side - (last_is_sampled ? unit_rows * unit_side - rows.height : 0);
  coding.restart_interval = 0;
  const EncodedBytes file = EncodeRows(sampled, coding);
  if (file.size == 0) return std::nullopt;
  const SymbolCounts counts = CountSymbols(CodedDataOf(file.view()), units_across * sampled_rows,
                                           coding.half_chrominance ? 4 : 1);
  Sample sample;
  for (int i = 0; i < 4; ++i) sample.tables[i] = FitHuffmanTable(kHuffmanTables[i], counts[i]);
  sample.row_bytes = file.size / sampled_rows;
  return sample;
}

// Encodes the stripes of a picture, each of which may be on another thread.
class StripeEncoder {
 public:
  StripeEncoder(const JpegRows& rows, const JpegStripes& stripes, int unit_side, JpegCoding coding)
      : rows_(rows),
        stripes_(stripes),
        unit_side_(unit_side),
        coding_(coding),
        encoded_(stripes.count) {}

  // Looks at the picture; what encodes a stripe waits for it. The look is a part of the work like
  // the stripes, so that the other threads begin meanwhile.
  void LookAtRows() {
    try {
      sample_ = LookAt(rows_, unit_side_, coding_);
    } catch (const std::bad_alloc&) {
    }
    failed_ = !sample_;
    looked_.count_down();
  }

  void Encode(int number) {
    looked_.wait();
    if (!sample_) return;
    JpegRows stripe = rows_;
    stripe.top += static_cast<std::ptrdiff_t>(number) * stripes_.rows * rows_.step;
    stripe.height = std::min(stripes_.rows, rows_.height - number * stripes_.rows);
    JpegCoding coding = coding_;
    coding.tables = sample_->tables.data();
    // The fitted tables are smaller than those of the sample; some rows are larger than others.
    coding.expected_bytes = 4096 + sample_->row_bytes * (stripes_.rows / unit_side_) * 5 / 4;
    encoded_[number] = EncodeRows(stripe, coding);
    if (encoded_[number].size == 0) failed_ = true;
  }

  bool failed() const { return failed_; }

  EncodedPicture Join() {
    std::vector<std::string_view> files;
    for (const EncodedBytes& stripe : encoded_) files.push_back(stripe.view());
    EncodedPicture picture;
    picture.file = JoinJpegStripes(files, rows_.height);
    picture.stripes = std::move(encoded_);
    return picture;
  }

 private:
  const JpegRows rows_;
  const JpegStripes stripes_;
  const int unit_side_;
  const JpegCoding coding_;
  std::latch looked_{1};
  std::optional<Sample> sample_;
  std::vector<EncodedBytes> encoded_;
  std::atomic<bool> failed_ = false;
};

}  // namespace

std::optional<EncodedPicture> EncodeJpegPicture(const JpegRows& rows, int quality,
                                                bool half_chrominance, int threads,
                                                const GoOn& go_on) try {
  const int unit_side = half_chrominance ? 16 : 8;
  const JpegStripes stripes = JpegStripesOf(rows.width, rows.height, unit_side);
  StripeEncoder encoder(rows, stripes, unit_side,
                        {quality, half_chrominance, stripes.restart_interval});
  const auto work = [&](int part) {
    if (part == 0) {
      encoder.LookAtRows();
    } else {
      encoder.Encode(part - 1);
    }
  };
  // What one stripe waits for is not worth another thread.
  const int useful_threads = stripes.count == 1 ? 1 : threads;
  const bool all = ForEachPart(stripes.count + 1, 1, useful_threads, work, [&](int done) {
    return !encoder.failed() && go_on(1.0 * done / (stripes.count + 1));
  });
  if (!all || encoder.failed()) return std::nullopt;
  return encoder.Join();
} catch (const std::bad_alloc&) {
  return std::nullopt;
}

}  // namespace tarnwell
