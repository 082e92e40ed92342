#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarnwell {

// Reads little-endian numbers one after another from the bytes of a file. A read past the end gives
// 0 and makes the reader fail for good, so that a block of fields is checked once, after it.
class ByteReader {
 public:
  // Starts at `position`; a position past the end fails with the first read.
  explicit ByteReader(std::string_view bytes, std::uint64_t position = 0)
      : bytes_(bytes), position_(position) {}

  bool ok() const { return ok_; }
  std::uint64_t position() const { return position_; }
  std::uint64_t left() const {
    return position_ < bytes_.size() ? bytes_.size() - position_ : std::uint64_t{0};
  }

  std::uint8_t U8() { return static_cast<std::uint8_t>(Number(1)); }
  std::uint16_t U16() { return static_cast<std::uint16_t>(Number(2)); }
  std::uint32_t U32() { return Number(4); }
  std::int32_t I32() { return static_cast<std::int32_t>(Number(4)); }

  void Skip(std::uint64_t count) {
    if (Has(count)) position_ += count;
  }

 private:
  bool Has(std::uint64_t count) {
    ok_ = ok_ && count <= left();
    return ok_;
  }

  std::uint32_t Number(int count) {
    if (!Has(count)) return 0;
    std::uint32_t number = 0;
    for (int i = 0; i < count; ++i) {
      const auto byte = static_cast<std::uint8_t>(bytes_[static_cast<std::size_t>(position_++)]);
      number |= static_cast<std::uint32_t>(byte) << (8 * i);
    }
    return number;
  }

  std::string_view bytes_;
  std::uint64_t position_ = 0;
  bool ok_ = true;
};

}  // namespace tarnwell
