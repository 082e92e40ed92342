#include "console/shown_text.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

TEST(ShownTextTest, ATerminalIsGivenNothingToObey) {
  const struct {
    const char* text;
    const char* line;
  } rows[] = {{"a\r\n\r\nb\nc", "a b c"},
              {"\r\na", "a"},
              {"\x1b[2Ja\x07\x7f\tb", "?[2Ja???b"},
              {"\xC2\x9B"
               "2J \xC2\xA9 \xC3\x9B \xE5\x86\x9B",
               "?2J \xC2\xA9 \xC3\x9B \xE5\x86\x9B"},
              {"\xC2", "\xC2"}};
  for (const auto& row : rows) EXPECT_EQ(OneLine(row.text), row.line);
  EXPECT_EQ(WithoutControls("a\nb\x1b\r\n"), "a\nb?\r\n");
}

TEST(ShownTextTest, LinesAreCutBetweenCharacters) {
  const struct {
    const char* line;
    int columns;
    const char* cut;
  } rows[] = {{"abc", 3, "abc"},
              {"abc", 2, "ab"},
              {"abc", 0, ""},
              {"abc", -1, ""},
              {"\xC3\xA4\xC3\xB6", 1, "\xC3\xA4"},
              {"\xE5\x86\x9B\xE5\x86\x9B", 3, "\xE5\x86\x9B"},
              {"\xF0\x9F\x8F\x9Dx", 2, "\xF0\x9F\x8F\x9D"}};
  for (const auto& row : rows) EXPECT_EQ(CutToWidth(row.line, row.columns), row.cut) << row.line;
}

}  // namespace
}  // namespace tarnwell
