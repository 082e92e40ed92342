#include "imaging/jpeg_encoder.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <numbers>
#include <span>
#include <vector>

#include "engine/pass.h"
#include "imaging/jpeg_huffman.h"
#include "imaging/jpeg_stripes.h"
#include "imaging/jpeg_tables.h"

namespace tarnwell {
namespace {

constexpr int kBlock = 8;
typedef float Four __attribute__((vector_size(16)));
// A row of a block, in the vectors that every processor of the builds has.
struct Row {
  Four left, right;
};
using Block = std::array<Row, kBlock>;
using Steps = std::array<std::uint8_t, 64>;

Steps ScaledSteps(const std::uint8_t (&base)[64], int quality) {
  Steps steps;
  for (int i = 0; i < 64; ++i) {
    steps[i] = static_cast<std::uint8_t>(QuantisationStep(base[i], quality));
  }
  return steps;
}

struct Code {
  std::uint16_t bits = 0;
  std::uint8_t length = 0;
};
using Codes = std::array<Code, 256>;  // by symbol

Codes CodesOf(const HuffmanTable& table) {
  Codes codes;
  std::uint16_t next = 0;
  std::size_t at = 0;
  for (std::uint8_t length = 1; length <= 16;
       ++length, next = static_cast<std::uint16_t>(next * 2)) {
    for (int i = 0; i < table.counts[length - 1]; ++i)
      codes[table.symbols[at++]] = {next++, length};
  }
  return codes;
}

// Cosines of the transform, scaled so that the transform keeps lengths: [place][frequency].
struct Cosines {
  float by_place[kBlock][kBlock];

  Cosines() {
    for (int frequency = 0; frequency < kBlock; ++frequency) {
      const double scale = frequency == 0 ? std::sqrt(0.125) : 0.5;
      for (int place = 0; place < kBlock; ++place) {
        by_place[place][frequency] = static_cast<float>(
            scale * std::cos((2 * place + 1) * frequency * std::numbers::pi / 16));
      }
    }
  }
};

inline void AddScaled(Row& sum, const Row& row, float factor) {
  sum.left += row.left * factor;
  sum.right += row.right * factor;
}

// Across the rows, then down the columns; all frequencies of a row at once.
void Transform(const Block& samples, Block& both) {
  static const Cosines kCosines;
  Block places;
  std::memcpy(&places, kCosines.by_place, sizeof(places));
  Block across;
  for (int y = 0; y < kBlock; ++y) {
    Row sum = {};
    for (int x = 0; x < 4; ++x) AddScaled(sum, places[x], samples[y].left[x]);
    for (int x = 0; x < 4; ++x) AddScaled(sum, places[4 + x], samples[y].right[x]);
    across[y] = sum;
  }
  for (int v = 0; v < kBlock; ++v) {
    Row sum = {};
    for (int y = 0; y < kBlock; ++y) AddScaled(sum, across[y], kCosines.by_place[y][v]);
    both[v] = sum;
  }
}

// The coded part of the file: bits from the highest down, a zero byte stuffed behind each 0xFF so
// that none is taken for a marker.
class BitWriter {
 public:
  explicit BitWriter(std::string& out) : out_(out) {}

  // At most 32 bits.
  void Put(std::uint32_t bits, int length) {
    pending_ = pending_ << length | bits;
    count_ += length;
    if (count_ < 32) return;
    count_ -= 32;
    PutWord(static_cast<std::uint32_t>(pending_ >> count_));
  }
  // A symbol's code, and the bits of the number that it announces.
  void Put(Code code, unsigned bits, int length) {
    Put(std::uint32_t{code.bits} << length | bits, code.length + length);
  }
  void Finish() {
    Put(0x7F, 7);  // fills the last byte with ones
    for (; count_ >= 8; count_ -= 8) PutByte(static_cast<std::uint8_t>(pending_ >> (count_ - 8)));
  }

 private:
  void PutByte(std::uint8_t byte) {
    out_ += static_cast<char>(byte);
    if (byte == 0xFF) out_ += '\0';
  }
  void PutWord(std::uint32_t word) {
    char bytes[4];
    bool has_ff = false;
    for (int i = 0; i < 4; ++i) {
      bytes[i] = static_cast<char>(word >> (24 - 8 * i));
      has_ff = has_ff || bytes[i] == '\xFF';
    }
    if (!has_ff) {
      out_.append(bytes, 4);
    } else {
      for (const char byte : bytes) PutByte(static_cast<std::uint8_t>(byte));
    }
  }

  std::string& out_;
  std::uint64_t pending_ = 0;
  int count_ = 0;
};

// A number is stored as its bit length, and then its bits; a negative one less 1.
int BitLength(int value) { return std::bit_width(static_cast<unsigned>(std::abs(value))); }
unsigned BitsOf(int value, int length) {
  return static_cast<unsigned>(value < 0 ? value - 1 : value) & ((1u << length) - 1);
}

// Luminance means, luminance rest, chrominance means, chrominance rest.
using Tables = std::array<HuffmanTable, 4>;

// How a picture is encoded.
struct Coding {
  Steps luminance;
  Steps chrominance;
  bool half_chrominance;
  Tables tables;

  int unit_side() const { return half_chrominance ? 2 * kBlock : kBlock; }
};

// Quantises and writes the blocks of one component.
class ComponentWriter {
 public:
  ComponentWriter(const Steps& steps, const HuffmanTable& means, const HuffmanTable& rest)
      : means_(CodesOf(means)), rest_(CodesOf(rest)) {
    float reals[64];
    std::copy(steps.begin(), steps.end(), reals);
    std::memcpy(&steps_, reals, sizeof(steps_));
  }

  void Write(const Block& samples, BitWriter& out) {
    std::int32_t levels[64];
    Quantise(samples, levels);
    const int difference = levels[0] - last_mean_;
    last_mean_ = levels[0];
    const int length = BitLength(difference);
    out.Put(means_[length], BitsOf(difference, length), length);
    WriteRest(levels, out);
  }

 private:
  typedef std::int32_t Numbers __attribute__((vector_size(16)));

  // The baseline codes reach to 1023 behind the mean.
  static constexpr std::int32_t kMost = 1023;

  // Rounded, halves away from 0, and not below `lowest`.
  static Numbers Rounded(Four coefficients, Four steps, Numbers lowest) {
    const Four exact = coefficients / steps;
    const Numbers sign = reinterpret_cast<Numbers>(exact) & std::numeric_limits<int>::min();
    const Four half = reinterpret_cast<Four>(reinterpret_cast<Numbers>(Four{} + 0.5f) | sign);
    Numbers level = __builtin_convertvector(exact + half, Numbers);
    level = level > kMost ? Numbers{} + kMost : level;
    return level < lowest ? lowest : level;
  }

  void Quantise(const Block& samples, std::int32_t (&levels)[64]) const {
    Block coefficients;
    Transform(samples, coefficients);
    const Numbers lowest = Numbers{} - kMost;
    for (int row = 0; row < kBlock; ++row) {
      const Numbers lowest_left = row == 0 ? Numbers{-kMost - 1, -kMost, -kMost, -kMost} : lowest;
      const Numbers left = Rounded(coefficients[row].left, steps_[row].left, lowest_left);
      const Numbers right = Rounded(coefficients[row].right, steps_[row].right, lowest);
      std::memcpy(levels + row * kBlock, &left, sizeof(left));
      std::memcpy(levels + row * kBlock + 4, &right, sizeof(right));
    }
  }

  void WriteRest(const std::int32_t (&levels)[64], BitWriter& out) {
    constexpr int kEndOfBlock = 0x00, kSixteenZeros = 0xF0;
    std::uint64_t others = 0;  // by place in the scan, those that are not 0
    for (int i = 1; i < 64; ++i) others |= std::uint64_t{levels[kZigzag[i]] != 0} << i;
    int last = 0;
    for (; others != 0; others &= others - 1) {
      const int i = std::countr_zero(others);
      int zeros = i - last - 1;
      last = i;
      for (; zeros > 15; zeros -= 16) out.Put(rest_[kSixteenZeros], 0, 0);
      const int value = levels[kZigzag[i]];
      const int length = BitLength(value);
      out.Put(rest_[zeros << 4 | length], BitsOf(value, length), length);
    }
    if (last < 63) out.Put(rest_[kEndOfBlock], 0, 0);
  }

  Block steps_;
  Codes means_;
  Codes rest_;
  int last_mean_ = 0;
};

// A square of 8 x 8 or 16 x 16 pixels as luminance and chrominance, around 0.
struct Unit {
  int side;
  alignas(32) std::array<float, 256> y, cb, cr;
};

// Luminance and chrominance of a pixel, or of four.
template <typename Real>
void SplitColour(Real blue, Real green, Real red, Real& y, Real& cb, Real& cr) {
  y = 0.299f * red + 0.587f * green + 0.114f * blue - 128;
  cb = -0.168736f * red - 0.331264f * green + 0.5f * blue;
  cr = 0.5f * red - 0.418688f * green - 0.081312f * blue;
}

// Four pixels of 4 bytes.
inline void SplitFour(const std::uint8_t* pixels, float* y, float* cb, float* cr) {
  static_assert(std::endian::native == std::endian::little);
  typedef std::int32_t Numbers __attribute__((vector_size(16)));
  Numbers four;
  std::memcpy(&four, pixels, sizeof(four));
  const auto channel = [&](int shift) {
    return __builtin_convertvector((four >> shift) & 255, Four);
  };
  Four y4, cb4, cr4;
  SplitColour(channel(0), channel(8), channel(16), y4, cb4, cr4);
  std::memcpy(y, &y4, sizeof(y4));
  std::memcpy(cb, &cb4, sizeof(cb4));
  std::memcpy(cr, &cr4, sizeof(cr4));
}

// Beyond the picture's edge its last column and row go on.
void ReadUnit(const BgrRows& rows, int left, int top, Unit& unit) {
  const bool in_fours = rows.pixel_bytes == 4 && left + unit.side <= rows.width;
  for (int j = 0; j < unit.side; ++j) {
    const std::uint8_t* row = rows.top + std::min(top + j, rows.height - 1) * rows.step;
    const int at = j * unit.side;
    if (in_fours) {
      for (int i = 0; i < unit.side; i += 4) {
        SplitFour(row + (left + i) * 4, &unit.y[at + i], &unit.cb[at + i], &unit.cr[at + i]);
      }
      continue;
    }
    for (int i = 0; i < unit.side; ++i) {
      const std::uint8_t* pixel = row + std::min(left + i, rows.width - 1) * rows.pixel_bytes;
      SplitColour<float>(pixel[0], pixel[1], pixel[2], unit.y[at + i], unit.cb[at + i],
                         unit.cr[at + i]);
    }
  }
}

Block Part(const Unit& unit, const std::array<float, 256>& plane, int left, int top) {
  Block block;
  for (int y = 0; y < kBlock; ++y) {
    std::memcpy(&block[y], &plane[(top + y) * unit.side + left], sizeof(block[y]));
  }
  return block;
}

// Means of 2 x 2 samples.
Block Halved(const std::array<float, 256>& plane) {
  float means[64];
  for (int y = 0; y < kBlock; ++y) {
    for (int x = 0; x < kBlock; ++x) {
      const float* at = &plane[y * 32 + x * 2];
      means[y * 8 + x] = (at[0] + at[1] + at[16] + at[17]) / 4;
    }
  }
  Block block;
  std::memcpy(&block, means, sizeof(block));
  return block;
}

// Encodes rows of units, one after another, as a piece of coded data that begins anew.
class ScanWriter {
 public:
  ScanWriter(const BgrRows& rows, const Coding& coding, std::string& out)
      : rows_(rows),
        coding_(coding),
        out_(out),
        y_(coding.luminance, coding.tables[0], coding.tables[1]),
        cb_(coding.chrominance, coding.tables[2], coding.tables[3]),
        cr_(cb_),
        unit_{.side = coding.unit_side(), .y = {}, .cb = {}, .cr = {}} {}

  void WriteUnitRow(int top) {
    const bool half = coding_.half_chrominance;
    for (int left = 0; left < rows_.width; left += unit_.side) {
      ReadUnit(rows_, left, top, unit_);
      for (int j = 0; j < unit_.side; j += kBlock) {
        for (int i = 0; i < unit_.side; i += kBlock) y_.Write(Part(unit_, unit_.y, i, j), out_);
      }
      cb_.Write(half ? Halved(unit_.cb) : Part(unit_, unit_.cb, 0, 0), out_);
      cr_.Write(half ? Halved(unit_.cr) : Part(unit_, unit_.cr, 0, 0), out_);
    }
  }
  void Finish() { out_.Finish(); }

 private:
  const BgrRows& rows_;
  const Coding& coding_;
  BitWriter out_;
  ComponentWriter y_;
  ComponentWriter cb_;
  ComponentWriter cr_;
  Unit unit_;
};

void AddWord(std::string& file, int value) {
  file += static_cast<char>(value >> 8);
  file += static_cast<char>(value & 0xFF);
}

void AddSteps(std::string& file, int number, const Steps& steps) {
  file.append("\xFF\xDB\0\x43", 4);
  file += static_cast<char>(number);
  for (const std::uint8_t place : kZigzag) file += static_cast<char>(steps[place]);
}

void AddFrame(std::string& file, const BgrRows& rows, bool half_chrominance) {
  file.append("\xFF\xC0\0\x11\x08", 5);
  AddWord(file, rows.height);
  AddWord(file, rows.width);
  file.append(half_chrominance ? "\3\1\x22\0" : "\3\1\x11\0", 4);
  file.append("\2\x11\1\3\x11\1", 6);
}

void AddHuffman(std::string& file, const HuffmanTable& table) {
  file.append("\xFF\xC4", 2);
  AddWord(file, static_cast<int>(2 + 1 + 16 + table.symbols.size()));
  file += static_cast<char>(table.id);
  for (const std::uint8_t count : table.counts) file += static_cast<char>(count);
  for (const std::uint8_t symbol : table.symbols) file += static_cast<char>(symbol);
}

// Everything before the coded data. `restart_interval` units stand between two restart markers; 0:
// there is none.
std::string HeaderOf(const BgrRows& rows, const Coding& coding, int restart_interval) {
  // Start, then the header that names the colours: "JFIF", version 1.1, square pixels, no preview.
  std::string file("\xFF\xD8\xFF\xE0\0\x10JFIF\0\1\1\0\0\1\0\1\0\0", 20);
  AddSteps(file, 0, coding.luminance);
  AddSteps(file, 1, coding.chrominance);
  AddFrame(file, rows, coding.half_chrominance);
  for (const HuffmanTable& table : coding.tables) AddHuffman(file, table);
  if (restart_interval > 0) {
    file.append("\xFF\xDD\0\4", 4);
    AddWord(file, restart_interval);
  }
  return file.append("\xFF\xDA\0\x0C\3\1\0\2\x11\3\x11\0\x3F\0", 14);
}

Coding CodingFor(int quality, bool half_chrominance) {
  Coding coding = {.luminance = ScaledSteps(kLuminanceSteps, quality),
                   .chrominance = ScaledSteps(kChrominanceSteps, quality),
                   .half_chrominance = half_chrominance,
                   .tables = {}};
  std::copy(std::begin(kHuffmanTables), std::end(kHuffmanTables), coding.tables.begin());
  return coding;
}

// Huffman tables for this picture, found from some of its rows of units.
std::array<FittedHuffmanTable, 4> FitTables(const BgrRows& rows, const Coding& coding) {
  constexpr int kUnitsWanted = 12000;
  const int side = coding.unit_side();
  const int across = (rows.width + side - 1) / side, down = (rows.height + side - 1) / side;
  const int every = std::max(static_cast<int>(std::int64_t{across} * down / kUnitsWanted), 1);
  std::string data;
  ScanWriter scan(rows, coding, data);
  int units = 0;
  for (int row = 0; row < down; row += every, units += across) scan.WriteUnitRow(row * side);
  scan.Finish();
  const SymbolCounts counts = CountSymbols(data, units, coding.half_chrominance ? 4 : 1);
  std::array<FittedHuffmanTable, 4> fitted;
  for (int i = 0; i < 4; ++i) fitted[i] = FitHuffmanTable(kHuffmanTables[i], counts[i]);
  return fitted;
}

// A table of `recommended`'s number that looks at the symbols of `fitted`.
HuffmanTable TableOf(const HuffmanTable& recommended, const FittedHuffmanTable& fitted) {
  HuffmanTable table = {recommended.id, {}, fitted.symbols};
  std::copy(fitted.counts.begin(), fitted.counts.end(), table.counts);
  return table;
}

}  // namespace

std::string EncodeJpeg(const BgrRows& rows, int quality, bool half_chrominance) {
  const Coding coding = CodingFor(quality, half_chrominance);
  std::string file = HeaderOf(rows, coding, 0);
  ScanWriter scan(rows, coding, file);
  for (int top = 0; top < rows.height; top += coding.unit_side()) scan.WriteUnitRow(top);
  scan.Finish();
  file += "\xFF\xD9";
  return file;
}

std::string EncodeJpegInStripes(const BgrRows& rows, int quality, bool half_chrominance,
                                int threads, const GoOn& go_on) {
  Coding coding = CodingFor(quality, half_chrominance);
  const std::array<FittedHuffmanTable, 4> fitted = FitTables(rows, coding);
  for (int i = 0; i < 4; ++i) coding.tables[i] = TableOf(kHuffmanTables[i], fitted[i]);
  const JpegStripes stripes = JpegStripesOf(rows.width, rows.height, coding.unit_side());
  std::vector<std::string> data(stripes.count);
  std::atomic<bool> out_of_memory = false;
  const auto encode = [&](int number) {
    try {
      ScanWriter scan(rows, coding, data[number]);
      const int end = std::min((number + 1) * stripes.rows, rows.height);
      for (int top = number * stripes.rows; top < end; top += coding.unit_side()) {
        scan.WriteUnitRow(top);
      }
      scan.Finish();
    } catch (const std::bad_alloc&) {
      out_of_memory = true;
    }
  };
  const bool all = ForEachPart(stripes.count, 1, threads, encode, [&](int done) {
    return !out_of_memory && go_on(1.0 * done / stripes.count);
  });
  if (out_of_memory) throw std::bad_alloc();
  if (!all) return {};
  std::string file = HeaderOf(rows, coding, stripes.restart_interval);
  std::size_t size = file.size() + 2;
  for (const std::string& stripe : data) size += stripe.size() + 2;
  file.reserve(size);
  for (int i = 0; i < stripes.count; ++i) {
    if (i > 0) file.append({'\xFF', static_cast<char>(0xD0 + (i - 1) % 8)});
    file += data[i];
  }
  file += "\xFF\xD9";
  return file;
}

}  // namespace tarnwell
