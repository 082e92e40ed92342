#include "shell/letter_case.h"

namespace tarnwell {
namespace {

// Blocks of capital letters. `step` 1: all are capitals, `offset` away from their small letter;
// 2: every second one from `first` on is.
struct CapitalBlock {
  int first;
  int last;
  int step;
  int offset;
};
constexpr CapitalBlock kCapitals[] = {
    {'A', 'Z', 1, 32},       {0x00C0, 0x00D6, 1, 32}, {0x00D8, 0x00DE, 1, 32},
    {0x0100, 0x012E, 2, 1},  {0x0132, 0x0136, 2, 1},  {0x0139, 0x0147, 2, 1},
    {0x014A, 0x0176, 2, 1},  {0x0179, 0x017D, 2, 1},  {0x0386, 0x0386, 1, 38},
    {0x0388, 0x038A, 1, 37}, {0x0391, 0x03A1, 1, 32}, {0x03A3, 0x03AB, 1, 32},
    {0x0400, 0x040F, 1, 80}, {0x0410, 0x042F, 1, 32}, {0x0460, 0x0480, 2, 1},
};

int SmallLetter(int letter) {
  for (const CapitalBlock& block : kCapitals) {
    if (letter >= block.first && letter <= block.last && (letter - block.first) % block.step == 0) {
      return letter + block.offset;
    }
  }
  return letter;
}

bool IsTwoByteStart(unsigned char byte) { return byte >= 0xC2 && byte <= 0xDF; }
bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

}  // namespace

std::string FoldCase(std::string_view text) {
  std::string folded(text);
  for (std::size_t i = 0; i < folded.size(); ++i) {
    const unsigned char first = folded[i];
    if (first < 0x80) {
      folded[i] = static_cast<char>(SmallLetter(first));
      continue;
    }
    if (!IsTwoByteStart(first) || i + 1 == folded.size()) continue;
    const unsigned char second = folded[i + 1];
    if (!IsContinuation(second)) continue;
    // All of these letters take two bytes, and so do their small forms.
    const int small = SmallLetter((first & 0x1F) << 6 | (second & 0x3F));
    folded[i] = static_cast<char>(0xC0 | small >> 6);
    folded[++i] = static_cast<char>(0x80 | (small & 0x3F));
  }
  return folded;
}

bool NameComesBefore(const std::string& a, const std::string& b) {
  const std::string folded_a = FoldCase(a);
  const std::string folded_b = FoldCase(b);
  return folded_a == folded_b ? a < b : folded_a < folded_b;
}

}  // namespace tarnwell
