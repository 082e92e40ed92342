#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarnwell {

// Numbers in the bytes of a file, highest byte first. The caller guarantees that they are there.
inline int ByteAt(std::string_view bytes, std::size_t at) {
  return static_cast<std::uint8_t>(bytes[at]);
}
inline std::uint32_t NumberAt(std::string_view bytes, std::size_t at, int count) {
  std::uint32_t number = 0;
  for (int i = 0; i < count; ++i) number = number << 8 | static_cast<std::uint8_t>(bytes[at + i]);
  return number;
}
inline int WordAt(std::string_view bytes, std::size_t at) {
  return static_cast<int>(NumberAt(bytes, at, 2));
}

}  // namespace tarnwell
