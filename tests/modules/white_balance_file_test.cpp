#include "modules/white_balance_file.h"

#include <gtest/gtest.h>

#include "tests/support/memory_files.h"

namespace tarnwell {
namespace {

WhiteBalanceSetting Setting(int red, int green, int blue, int position) {
  return {{red, green, blue}, position};
}

TEST(WhiteBalanceFileTest, ReadsWhatStandsBehindTheTags) {
  const struct {
    const char* name;
    const char* text;
    WhiteBalanceSetting expected;
  } cases[] = {
      {"as written", "Red: 250\r\nGrn: 128\r\nBlu: 7\r\nSld: 145\r\n", Setting(250, 128, 7, 145)},
      {"LF, no end behind the last line", "Red: 1\nGrn: 2\nBlu: 3\nSld: 4", Setting(1, 2, 3, 4)},
      {"misspelt tags", "Rot: 1\r\n12345 2\r\n     3\r\nxxxxx4\r\n", Setting(1, 2, 3, 4)},
      {"tag with letters of two bytes", "r\xC3\xB6\xC3\xB6t:1\r\nGrn: 2\r\nBlu: 3\r\nSld: 4\r\n",
       Setting(1, 2, 3, 4)},
      {"blanks and fractions", "Red:  10 \r\nGrn: 20.5\r\nBlu: 21.5\r\nSld: 90.5\r\n",
       Setting(10, 20, 22, 90)},
      {"outside the ranges", "Red: -1\r\nGrn: 256\r\nBlu: 32767\r\nSld: 183\r\n",
       Setting(0, 255, 255, 182)},
      {"lines behind the fourth", "Red: 1\r\nGrn: 2\r\nBlu: 3\r\nSld: 4\r\nanything\r\n",
       Setting(1, 2, 3, 4)},
      {"preset without a custom file", "0\r\n0\r\n0\r\n0\r\nTitle\r\n", Setting(0, 0, 0, 0)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const auto setting = ParseWhiteBalance(c.text, "F");
    ASSERT_TRUE(setting.ok()) << setting.status.message;
    EXPECT_EQ(*setting, c.expected);
  }
}

TEST(WhiteBalanceFileTest, DamageNamesFileAndLine) {
  const std::string not_a_number = "a whole number is expected from the sixth character on";
  const std::string missing = "the file ends before this line";
  const struct {
    const char* name;
    const char* text;
    std::string expected;
  } cases[] = {
      {"empty file", "", "F: line 1: " + missing},
      {"no slider line", "Red: 1\r\nGrn: 2\r\nBlu: 3\r\n", "F: line 4: " + missing},
      {"a word", "Red: 1\r\nGrn: green\r\nBlu: 3\r\nSld: 4\r\n", "F: line 2: " + not_a_number},
      {"nothing behind the tag", "Red: \r\nGrn: 2\r\nBlu: 3\r\nSld: 4\r\n",
       "F: line 1: " + not_a_number},
      {"number with a tail", "Red: 1\r\nGrn: 2\r\nBlu: 3x\r\nSld: 4\r\n",
       "F: line 3: " + not_a_number},
      {"more than 16 bits", "Red: 1\r\nGrn: 2\r\nBlu: 3\r\nSld: 32768\r\n",
       "F: line 4: " + not_a_number},
      {"a bare 0 among tagged lines", "Red: 1\r\nGrn: 2\r\n0\r\nSld: 4\r\n",
       "F: line 3: " + not_a_number},
      {"three bare 0", "0\r\n0\r\n0\r\n", "F: line 1: " + not_a_number},
      {"a control character", "Red: 1\r\nGrn: 2\r\nBlu: \x01\r\nSld: 4\r\n",
       "F: line 3: " + not_a_number},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ParseWhiteBalance(c.text, "F").status.message, c.expected);
  }
}

TEST(WhiteBalanceFileTest, FileHoldsExactlyFourTaggedLines) {
  MemoryFiles files;
  const std::string path = "C:\\fotos \xE2\x82\xAC\\wei\xC3\x9F.wbs";
  ASSERT_TRUE(WriteWhiteBalanceFile(files, path, Setting(255, 0, 12, 90)).ok());
  EXPECT_EQ(files.files[path], "Red: 255\r\nGrn: 0\r\nBlu: 12\r\nSld: 90\r\n");
  EXPECT_EQ(*ReadWhiteBalanceFile(files, path), Setting(255, 0, 12, 90));
  EXPECT_EQ(WhiteBalanceText({}), "Red: 192\r\nGrn: 192\r\nBlu: 192\r\nSld: 91\r\n");
}

TEST(WhiteBalanceFileTest, FilesThatCannotBeASettingAreRefused) {
  MemoryFiles files;
  files.files["C:\\huge.wbs"] = std::string((1 << 20) + 1, '0');
  EXPECT_EQ(ReadWhiteBalanceFile(files, "C:\\huge.wbs").status.failure, Failure::kTooLarge);
  EXPECT_EQ(ReadWhiteBalanceFile(files, "C:\\none.wbs").status.failure, Failure::kNotFound);
}

}  // namespace
}  // namespace tarnwell
