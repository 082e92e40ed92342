#include "automation/free_name.h"

#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/system.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

TEST(FreeNameTest, NumbersGoBetweenTheLastDotAndTheFirst) {
  struct Case {
    const char* path;
    int number;
    const char* name;
  };
  const Case cases[] = {
      {"C:\\out\\x.jpg", 0, "C:\\out\\x.jpg"},
      {"C:\\out\\x.jpg", 1, "C:\\out\\x~1.jpg"},
      {"C:\\out\\x.y.jpg", 12, "C:\\out\\x.y~12.y.jpg"},
      {"C:\\my.out\\x.jpg", 1, "C:\\my.out\\x~1.out\\x.jpg"},
      {"C:\\out\\none", 1, "C:\\out\\none~1"},
  };
  for (const Case& c : cases) EXPECT_EQ(NumberedName(c.path, c.number), c.name) << c.path;
}

TEST(FreeNameTest, TakesTheLowestNumberThatIsFree) {
  TempFolder folder;
  const auto files = MakeSystemFiles();
  EXPECT_EQ(FreeName(folder.File("x.jpg"), *files), folder.File("x.jpg"));
  folder.Write("x.jpg", "");
  folder.MakeFolder("x~1.jpg");
  folder.Write("x~3.jpg", "");
  EXPECT_EQ(FreeName(folder.File("x.jpg"), *files), folder.File("x~2.jpg"));
}

}  // namespace
}  // namespace tarnwell
