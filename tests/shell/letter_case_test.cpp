#include "shell/letter_case.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace tarnwell {
namespace {

TEST(LetterCaseTest, CapitalsBecomeSmall) {
  struct Row {
    const char* text;
    const char* folded;
  };
  const Row rows[] = {
      {"", ""},
      {"Night 2 [@`{", "night 2 [@`{"},
      {"ÀÖ×ØÞßÿ", "àö×øþßÿ"},
      {"ĀĮİĲĶĹŇŊŶŸŹŽ", "āįİĳķĺňŋŷŸźž"},
      {"ΆΈΊΑΡΣΫω", "άέίαρσϋω"},
      {"ЀЏАЯя", "ѐџаяя"},
      {"写真 📷 Ａ", "写真 📷 Ａ"},
      // Broken UTF-8: a start at the end, a start before a letter, a stray continuation.
      {"A\xC3", "a\xC3"},
      {"\xC3"
       "A",
       "\xC3"
       "a"},
      {"\x80"
       "B",
       "\x80"
       "b"},
  };
  for (const Row& row : rows) EXPECT_EQ(FoldCase(row.text), row.folded) << row.text;
}

TEST(LetterCaseTest, NamesSortWithoutRegardToCase) {
  std::vector<std::string> names = {"b", "Éa", "C", "A", "éb", "B", "a", "aa"};
  std::sort(names.begin(), names.end(), NameComesBefore);
  EXPECT_EQ(names, (std::vector<std::string>{"A", "a", "aa", "B", "b", "C", "Éa", "éb"}));
}

}  // namespace
}  // namespace tarnwell
