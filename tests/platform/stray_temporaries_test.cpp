#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/system.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

TEST(StrayTemporariesTest, OnlyOwnFilesOfEndedProgramsGo) {
  TempFolder folder;
  const auto files = MakeSystemFiles();
  // Far above every process number that is given out.
  for (const char* stray : {".tarnwell-999999999-3-00c0ffee.tmp", "~tp4294967293-7.tmp"}) {
    folder.Write(stray, "half");
  }
  const std::string left_by_this_number = files->TemporaryBeside(folder.File("photo.jpg"));
  folder.Write(left_by_this_number.substr(folder.path().size() + 1), "half");
  const std::vector<std::string> others = {".tarnwell-999999999-3-00c0ffee.tmp.jpg",
                                           ".tarnwell-1-3-00c0ffee.tmpx", ".tarnwell--1-3-0.tmp",
                                           "a.jpg", "~tp12.tmp"};
  for (const std::string& other : others) folder.Write(other, "kept");
  // Each system knows its own names only.
  EXPECT_EQ(DeleteStrayTemporaries(folder.path() + "\\"), 2);
  EXPECT_EQ(folder.Names().size(), others.size() + 1);
  EXPECT_FALSE(files->FileExists(left_by_this_number));
}

}  // namespace
}  // namespace tarnwell
