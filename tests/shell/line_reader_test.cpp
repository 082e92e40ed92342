#include "shell/line_reader.h"

#include <gtest/gtest.h>
#include <vector>

namespace tarnwell {
namespace {

TEST(LineReaderTest, SplitsAtEitherLineEnd) {
  const struct {
    const char* name;
    std::string text;
    std::vector<std::string> lines;
  } cases[] = {
      {"empty text", "", {}},
      {"CR LF", "a\r\nb\r\n", {"a", "b"}},
      {"LF", "a\nb\n", {"a", "b"}},
      {"mixed, last end missing", "a\nb\r\nc", {"a", "b", "c"}},
      {"empty lines count", "\r\n\n\r\n", {"", "", ""}},
      {"only one CR belongs to the end", "a\r\r\n", {"a\r"}},
      {"CR alone is content", "a\rb\n", {"a\rb"}},
      {"zero bytes are content", std::string("a\0b\n", 4), {std::string("a\0b", 3)}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    LineReader reader(c.text, "F");
    std::vector<std::string> lines;
    while (const auto line = reader.Next()) lines.emplace_back(*line);
    EXPECT_EQ(lines, c.lines);
  }
}

TEST(LineReaderTest, MessagesNameTheLineThatWasReadOrMissed) {
  LineReader reader("1\r\nx\r\n", "C:\\a.ini");
  EXPECT_EQ(*NextInteger(reader), 1);
  EXPECT_EQ(NextInteger(reader).status.message,
            "C:\\a.ini: line 2: a whole number is expected here");
  const Status missing = NextInteger(reader).status;
  EXPECT_EQ(missing.message, "C:\\a.ini: line 3: the file ends before this line");
  EXPECT_EQ(missing.failure, Failure::kDamaged);
  EXPECT_EQ(NextInteger(reader).status.message, missing.message) << "asking again counts on";
}

}  // namespace
}  // namespace tarnwell
