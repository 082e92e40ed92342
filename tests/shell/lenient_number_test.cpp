#include "shell/lenient_number.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

TEST(LenientNumberTest, ReadsWholeNumbersAsPeopleWriteThem) {
  struct Row {
    const char* text;
    int number;
  };
  const Row rows[] = {
      {"0", 0},
      {"42", 42},
      {" \t42 ", 42},
      {"+7", 7},
      {"-0", 0},
      {"-100", -100},
      {"007", 7},
      {"2.5", 2},
      {"3.5", 4},
      {"-2.5", -2},
      {".5", 0},
      {"1.5000001", 2},
      {"1e2", 100},
      {"32767", 32767},
      {"32767.49", 32767},
      {"-32768", -32768},
      {"-32768.5", -32768},
  };
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

}  // namespace
}  // namespace tarnwell
