#pragma once

#include <string>
#include <vector>

namespace tarnwell {

// GIF files field by field, for tests. At most four colours; the pixels are stored without
// compression: the table of codes is cleared before a code would take a fourth bit.

struct GifColour {
  unsigned char red, green, blue;
};

struct GifFrame {
  int left = 0, top = 0, width = 0, height = 0;
  std::vector<unsigned char> indices;  // width x height, top row first, 0..3
  int transparent = -1;
  bool interlaced = false;
};

class GifBuilder {
 public:
  GifBuilder(int width, int height, const std::vector<GifColour>& colours) : bytes_("GIF89a") {
    Word(width);
    Word(height);
    for (const int field : {0x81, 0, 0}) Byte(field);
    for (const GifColour& colour : colours) {
      for (const int channel : {colour.red, colour.green, colour.blue}) Byte(channel);
    }
  }

  GifBuilder& Add(const GifFrame& frame) {
    if (frame.transparent >= 0) {
      bytes_ += std::string("\x21\xF9\x04\x01\x00\x00", 6);
      Byte(frame.transparent);
      Byte(0);
    }
    Byte(0x2C);
    for (int field : {frame.left, frame.top, frame.width, frame.height}) Word(field);
    Byte(frame.interlaced ? 0x40 : 0);
    Pixels(frame);
    return *this;
  }

  std::string Bytes() const { return bytes_ + ";"; }

 private:
  static constexpr int kClear = 4, kEnd = 5;

  void Byte(int value) { bytes_ += static_cast<char>(value); }
  void Word(int value) {
    Byte(value & 255);
    Byte(value >> 8);
  }
  static std::vector<int> RowOrder(const GifFrame& frame) {
    std::vector<int> order;
    const int first[] = {0, 4, 2, 1}, step[] = {8, 8, 4, 2};
    for (int run = 0; run < 4 && frame.interlaced; ++run) {
      for (int y = first[run]; y < frame.height; y += step[run]) order.push_back(y);
    }
    for (int y = 0; y < frame.height && !frame.interlaced; ++y) order.push_back(y);
    return order;
  }

  void Pixels(const GifFrame& frame) {
    std::vector<int> codes;
    for (int y : RowOrder(frame)) {
      for (int x = 0; x < frame.width; ++x) {
        if (codes.size() % 3 == 0) codes.push_back(kClear);
        codes.push_back(frame.indices[static_cast<std::size_t>(y * frame.width + x)]);
      }
    }
    codes.push_back(kEnd);
    std::string packed;
    unsigned bits = 0;
    int count = 0;
    for (int code : codes) {
      bits |= static_cast<unsigned>(code) << count;
      for (count += 3; count >= 8; count -= 8, bits >>= 8) packed += static_cast<char>(bits & 255);
    }
    packed += static_cast<char>(bits & 255);
    Byte(2);
    for (std::size_t at = 0; at < packed.size(); at += 255) {
      const std::string block = packed.substr(at, 255);
      Byte(static_cast<int>(block.size()));
      bytes_ += block;
    }
    Byte(0);
  }

  std::string bytes_;
};

}  // namespace tarnwell
