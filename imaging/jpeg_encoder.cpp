#include "imaging/jpeg_encoder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <numbers>

#include "imaging/jpeg_tables.h"

namespace tarnwell {
namespace {

constexpr int kBlock = 8;
using Block = std::array<float, 64>;  // row by row
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

// Cosines of the transform, scaled so that the transform keeps lengths: [frequency][place].
std::array<std::array<float, kBlock>, kBlock> MakeCosines() {
  std::array<std::array<float, kBlock>, kBlock> cosines;
  for (int frequency = 0; frequency < kBlock; ++frequency) {
    const double scale = frequency == 0 ? std::sqrt(0.125) : 0.5;
    for (int place = 0; place < kBlock; ++place) {
      cosines[frequency][place] =
          static_cast<float>(scale * std::cos((2 * place + 1) * frequency * std::numbers::pi / 16));
    }
  }
  return cosines;
}

// Across the rows, then down the columns.
Block Transform(const Block& samples) {
  static const auto kCosines = MakeCosines();
  Block across{}, both{};
  for (int y = 0; y < kBlock; ++y) {
    for (int u = 0; u < kBlock; ++u) {
      for (int x = 0; x < kBlock; ++x) across[y * 8 + u] += samples[y * 8 + x] * kCosines[u][x];
    }
  }
  for (int v = 0; v < kBlock; ++v) {
    for (int y = 0; y < kBlock; ++y) {
      for (int u = 0; u < kBlock; ++u) both[v * 8 + u] += across[y * 8 + u] * kCosines[v][y];
    }
  }
  return both;
}

// The coded part of the file: bits from the highest down, a zero byte stuffed behind each 0xFF so
// that none is taken for a marker.
class BitWriter {
 public:
  explicit BitWriter(std::string& out) : out_(out) {}

  void Put(unsigned bits, int length) {
    pending_ = pending_ << length | bits;
    for (count_ += length; count_ >= 8; count_ -= 8) {
      const auto byte = static_cast<char>(pending_ >> (count_ - 8) & 0xFF);
      out_ += byte;
      if (byte == '\xFF') out_ += '\0';
    }
  }
  void Put(Code code) { Put(code.bits, code.length); }
  void Finish() { Put(0x7F, 7); }  // fills the last byte with ones

 private:
  std::string& out_;
  std::uint64_t pending_ = 0;
  int count_ = 0;
};

// A number is stored as its bit length, and then its bits; a negative one less 1.
int BitLength(int value) { return std::bit_width(static_cast<unsigned>(std::abs(value))); }
unsigned BitsOf(int value, int length) {
  return static_cast<unsigned>(value < 0 ? value - 1 : value) & ((1u << length) - 1);
}

// Quantises and writes the blocks of one component.
class ComponentWriter {
 public:
  ComponentWriter(const Steps& steps, const HuffmanTable& means, const HuffmanTable& rest)
      : steps_(steps), means_(CodesOf(means)), rest_(CodesOf(rest)) {}

  void Write(const Block& samples, BitWriter& out) {
    const Block coefficients = Transform(samples);
    const int mean = Quantised(coefficients, 0);
    const int difference = mean - last_mean_;
    last_mean_ = mean;
    const int length = BitLength(difference);
    out.Put(means_[length]);
    out.Put(BitsOf(difference, length), length);
    WriteRest(coefficients, out);
  }

 private:
  int Quantised(const Block& coefficients, int place) const {
    // The baseline codes reach to 1023 behind the mean.
    const long value = std::lround(coefficients[place] / steps_[place]);
    return static_cast<int>(std::clamp(value, place == 0 ? -1024L : -1023L, 1023L));
  }

  void WriteRest(const Block& coefficients, BitWriter& out) {
    constexpr int kEndOfBlock = 0x00, kSixteenZeros = 0xF0;
    int zeros = 0;
    for (int i = 1; i < 64; ++i) {
      const int value = Quantised(coefficients, kZigzag[i]);
      if (value == 0) {
        ++zeros;
        continue;
      }
      for (; zeros > 15; zeros -= 16) out.Put(rest_[kSixteenZeros]);
      const int length = BitLength(value);
      out.Put(rest_[zeros << 4 | length]);
      out.Put(BitsOf(value, length), length);
      zeros = 0;
    }
    if (zeros > 0) out.Put(rest_[kEndOfBlock]);
  }

  Steps steps_;
  Codes means_;
  Codes rest_;
  int last_mean_ = 0;
};

// A square of 8 x 8 or 16 x 16 pixels as luminance and chrominance, around 0.
struct Unit {
  int side;
  std::array<float, 256> y, cb, cr;
};

// Beyond the picture's edge its last column and row go on.
void ReadUnit(const BgrRows& rows, int left, int top, Unit& unit) {
  for (int j = 0; j < unit.side; ++j) {
    const std::uint8_t* row = rows.top + std::min(top + j, rows.height - 1) * rows.step;
    for (int i = 0; i < unit.side; ++i) {
      const std::uint8_t* pixel = row + std::min(left + i, rows.width - 1) * rows.pixel_bytes;
      const float blue = pixel[0], green = pixel[1], red = pixel[2];
      const int at = j * unit.side + i;
      unit.y[at] = 0.299f * red + 0.587f * green + 0.114f * blue - 128;
      unit.cb[at] = -0.168736f * red - 0.331264f * green + 0.5f * blue;
      unit.cr[at] = 0.5f * red - 0.418688f * green - 0.081312f * blue;
    }
  }
}

Block Part(const Unit& unit, const std::array<float, 256>& plane, int left, int top) {
  Block block;
  for (int y = 0; y < kBlock; ++y) {
    for (int x = 0; x < kBlock; ++x) block[y * 8 + x] = plane[(top + y) * unit.side + left + x];
  }
  return block;
}

// Means of 2 x 2 samples.
Block Halved(const std::array<float, 256>& plane) {
  Block block;
  for (int y = 0; y < kBlock; ++y) {
    for (int x = 0; x < kBlock; ++x) {
      const float* at = &plane[y * 32 + x * 2];
      block[y * 8 + x] = (at[0] + at[1] + at[16] + at[17]) / 4;
    }
  }
  return block;
}

// False when `go_on` ended it.
bool WriteScan(const BgrRows& rows, const Steps& luminance, const Steps& chrominance,
               bool half_chrominance, const GoOn& go_on, std::string& file) {
  BitWriter out(file);
  ComponentWriter y(luminance, kHuffmanTables[0], kHuffmanTables[1]);
  ComponentWriter cb(chrominance, kHuffmanTables[2], kHuffmanTables[3]);
  ComponentWriter cr = cb;
  Unit unit{.side = half_chrominance ? 2 * kBlock : kBlock, .y = {}, .cb = {}, .cr = {}};
  for (int top = 0; top < rows.height; top += unit.side) {
    if (!go_on(1.0 * top / rows.height)) return false;
    for (int left = 0; left < rows.width; left += unit.side) {
      ReadUnit(rows, left, top, unit);
      for (int j = 0; j < unit.side; j += kBlock) {
        for (int i = 0; i < unit.side; i += kBlock) y.Write(Part(unit, unit.y, i, j), out);
      }
      cb.Write(half_chrominance ? Halved(unit.cb) : Part(unit, unit.cb, 0, 0), out);
      cr.Write(half_chrominance ? Halved(unit.cr) : Part(unit, unit.cr, 0, 0), out);
    }
  }
  out.Finish();
  return true;
}

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

}  // namespace

std::string EncodeJpeg(const BgrRows& rows, int quality, bool half_chrominance, const GoOn& go_on) {
  const Steps luminance = ScaledSteps(kLuminanceSteps, quality);
  const Steps chrominance = ScaledSteps(kChrominanceSteps, quality);
  // Start, then the header that names the colours: "JFIF", version 1.1, square pixels, no preview.
  std::string file("\xFF\xD8\xFF\xE0\0\x10JFIF\0\1\1\0\0\1\0\1\0\0", 20);
  AddSteps(file, 0, luminance);
  AddSteps(file, 1, chrominance);
  AddFrame(file, rows, half_chrominance);
  for (const HuffmanTable& table : kHuffmanTables) AddHuffman(file, table);
  file.append("\xFF\xDA\0\x0C\3\1\0\2\x11\3\x11\0\x3F\0", 14);
  if (!WriteScan(rows, luminance, chrominance, half_chrominance, go_on, file)) return {};
  return file + "\xFF\xD9";
}

}  // namespace tarnwell
