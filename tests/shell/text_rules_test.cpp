#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

#include "shell/lenient_number.h"
#include "shell/letter_case.h"
#include "shell/line_reader.h"
#include "shell/time_left.h"

namespace tarnwell {
namespace {

TEST(LenientNumberTest, ReadsWholeNumbersAsPeopleWriteThem) {
  struct Row {
    const char* text;
    int number;
  };
  const Row rows[] = {
      {" \t42 ", 42},      {"+7", 7},          {"-0", 0},           {"007", 7},   {"2.5", 2},
      {"3.5", 4},          {"-2.5", -2},       {".5", 0},           {"1e2", 100}, {"32767", 32767},
      {"32767.49", 32767}, {"-32768", -32768}, {"-32768.5", -32768}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(ParseLenientInt16(row.text), row.number);
  }
}

TEST(LenientNumberTest, RefusesWhatIsNoNumber) {
  for (const char* text : {"", "   ", "-", "+", ".", "abc", "12a", "1 2", "1,5", "0x10", "&H10",
                           "--1", "+-1", "- 1", "inf", "-infinity", "nan", "1e999", "1e"}) {
    EXPECT_EQ(ParseLenientNumber(text), std::nullopt) << text;
  }
  EXPECT_EQ(ParseLenientNumber(std::string_view("1\0", 2)), std::nullopt);
}

TEST(LenientNumberTest, WholeNumbersStayWithin16Bits) {
  // The first one ties to 32768, one too many.
  for (const char* text : {"32767.5", "32768", "-32769", "-32768.6", "1e300", "65536"}) {
    EXPECT_EQ(ParseLenientInt16(text), std::nullopt) << text;
    EXPECT_NE(ParseLenientNumber(text), std::nullopt) << text;
  }
}

TEST(AboutTimeLeftTest, SaysItCalmlyAndOnlyWhenItIsLong) {
  const struct {
    double share, elapsed;  // seconds
    const char* text;
  } kRows[] = {
      {0, 100, ""},      // nothing is known
      {0.001, 2.9, ""},  // too early
      {0.5, 10, ""},
      {0.5, 10.5, "about 20 seconds left"},
      {0.25, 10, "about 30 seconds left"},
      {0.5, 50, "about 50 seconds left"},
      {0.5, 51, "about 1 minute left"},
      {0.5, 89, "about 1 minute left"},
      {0.5, 91, "about 2 minutes left"},
      {0.01, 18, "about 30 minutes left"},
      {0.5, 59.4 * 60, "about 59 minutes left"},
      {0.5, 59.6 * 60, "about 1 hour left"},
      {0.5, 76 * 60, "about 1 hour 20 minutes left"},
      {0.5, 600 * 60, "about 10 hours left"},
      {1e-9, 10, ""},  // months: no
      {1, 1000, ""},
      {1.5, 1000, ""},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(AboutTimeLeft(row.share, static_cast<std::int64_t>(row.elapsed * 1e9)), row.text)
        << row.share << " in " << row.elapsed << " s";
  }
}

TEST(LetterCaseTest, CapitalsBecomeSmall) {
  const std::pair<const char*, const char*> rows[] = {
      {"Night 2 [@`{", "night 2 [@`{"}, {"ÀÖ×ØÞßÿ", "àö×øþßÿ"},
      {"ĀĮİĲĶĹŇŊŶŸŹŽ", "āįİĳķĺňŋŷŸźž"}, {"ΆΈΊΑΡΣΫω", "άέίαρσϋω"},
      {"ЀЏАЯя写真Ａ", "ѐџаяя写真Ａ"},   {"A\xC3", "a\xC3"},  // broken UTF-8
      {"\x80\x42", "\x80\x62"},
  };
  for (const auto& [text, folded] : rows) EXPECT_EQ(FoldCase(text), folded) << text;
}

TEST(LetterCaseTest, NamesSortWithoutRegardToCase) {
  std::vector<std::string> names = {"b", "Éa", "C", "A", "éb", "B", "a", "aa"};
  std::sort(names.begin(), names.end(), NameComesBefore);
  EXPECT_EQ(names, (std::vector<std::string>{"A", "a", "aa", "B", "b", "C", "Éa", "éb"}));
}

TEST(LineReaderTest, SplitsAtEitherLineEnd) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"", {}},
      {"a\nb\r\nc", {"a", "b", "c"}},
      {"\r\n\n\r\n", {"", "", ""}},
      {"a\r\r\n", {"a\r"}},
      {"a\rb\n", {"a\rb"}},
      {std::string("a\0b\n", 4), {std::string("a\0b", 3)}},
  };
  for (const auto& [text, expected] : cases) {
    LineReader reader(text, "F");
    std::vector<std::string> lines;
    while (const auto line = reader.Next()) lines.emplace_back(*line);
    EXPECT_EQ(lines, expected);
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
