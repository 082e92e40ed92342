#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

TEST(TempFolderTest, IsFreshAndGoneAfterwards) {
  std::filesystem::path gone;
  {
    TempFolder first, second;
    EXPECT_NE(first.path(), second.path());
    EXPECT_EQ(first.Write("sub\\\xC3\xA9.txt", "text"), first.path() + "\\sub\\\xC3\xA9.txt");
    EXPECT_EQ(first.Read("sub\\\xC3\xA9.txt"), "text");
    EXPECT_EQ(first.Names(), std::vector<std::string>{"sub"});
    EXPECT_EQ(first.Names("sub"), std::vector<std::string>{"\xC3\xA9.txt"});
    gone = first.SystemPath();
  }
  EXPECT_FALSE(std::filesystem::exists(gone));
}

}  // namespace
}  // namespace tarnwell
