#include "console/shown_text.h"

#include <cstdint>

namespace tarnwell {
namespace {

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

std::uint8_t ByteOf(const std::string& text, std::size_t at) {
  return at < text.size() ? static_cast<std::uint8_t>(text[at]) : 0;
}

// How many bytes of the control character at `at`; 0 when there is none. The second kind are those
// of 8-bit terminals, in UTF-8.
std::size_t ControlAt(const std::string& text, std::size_t at) {
  const std::uint8_t byte = ByteOf(text, at), next = ByteOf(text, at + 1);
  if (byte < 0x20 || byte == 0x7F) return 1;
  return byte == 0xC2 && next >= 0x80 && next < 0xA0 ? 2 : 0;
}

// The first bytes of the characters that take two columns start here; some narrow ones lie behind.
constexpr std::uint8_t kFirstOfWide = 0xE1;

}  // namespace

std::string WithoutControls(const std::string& text) {
  std::string shown;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::size_t control = IsLineEnd(text[at]) ? 0 : ControlAt(text, at);
    shown += control > 0 ? '?' : text[at];
    if (control > 1) ++at;
  }
  return shown;
}

std::string OneLine(const std::string& text) {
  std::string line;
  for (const char c : WithoutControls(text)) {
    if (IsLineEnd(c) && (line.empty() || line.back() == ' ')) continue;
    line += IsLineEnd(c) ? ' ' : c;
  }
  return line;
}

std::string CutToWidth(const std::string& line, int columns) {
  std::size_t end = 0;
  while (end < line.size()) {
    columns -= ByteOf(line, end) >= kFirstOfWide ? 2 : 1;
    if (columns < 0) break;
    ++end;
    while ((ByteOf(line, end) & 0xC0) == 0x80) ++end;
  }
  return line.substr(0, end);
}

void TellLine(std::ostream& err, const std::string& text) { err << OneLine(text) << std::endl; }

}  // namespace tarnwell
