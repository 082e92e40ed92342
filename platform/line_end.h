#pragma once

#include <string_view>

namespace tarnwell {

// What must follow `text`, the last bytes of a text file, for the next line to start on its own:
// nothing when it ends a line or is empty.
inline std::string_view MissingLineEnd(std::string_view text) {
  if (text.empty() || text.back() == '\n') return "";
  return text.back() == '\r' ? "\n" : "\r\n";
}

}  // namespace tarnwell
