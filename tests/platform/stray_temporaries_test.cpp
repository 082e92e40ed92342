#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/system.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

using Names = std::vector<std::string>;

TEST(StrayTemporariesTest, OnlyOwnFilesOfEndedProgramsGo) {
  TempFolder folder;
  const auto files = MakeSystemFiles();
  const std::string in_use = files->TemporaryBeside(folder.File("photo.jpg"));
  folder.Write(in_use.substr(folder.path().size() + 1), "being written");
  // Of an earlier process that had the number of this one.
  std::string earlier = in_use.substr(folder.path().size() + 1);
  char& last_of_session = earlier[earlier.size() - 5];
  last_of_session = last_of_session == '0' ? '1' : '0';
  folder.Write(earlier, "half");
  // Far above every process number that is given out; each system knows its own names only.
  for (const char* stray : {".tarnwell-999999999-3-00c0ffee.tmp", "~tp4294967293-7-00c0ffee.tmp"}) {
    folder.Write(stray, "half");
  }
  const Names others = {".tarnwell-999999999-3-00c0ffee.tmp.jpg", ".tarnwell-1-3-00c0ffee.tmpx",
                        ".tarnwell--1-3-0.tmp", "a.jpg", "~tp12.tmp"};
  for (const std::string& other : others) folder.Write(other, "kept");
  EXPECT_EQ(DeleteStrayTemporaries(folder.path() + "\\"), 2);
  EXPECT_EQ(folder.Names().size(), others.size() + 2);
  EXPECT_FALSE(folder.Holds(earlier));
  EXPECT_TRUE(files->FileExists(in_use));
}

// Nobody has to remember to tidy up: whoever writes into a folder does.
TEST(StrayTemporariesTest, TheFirstWriteIntoAFolderDeletesThem) {
  const auto files = MakeSystemFiles();
  for (const bool append : {true, false}) {
    TempFolder folder;
    for (const char* stray :
         {".tarnwell-999999999-3-00c0ffee.tmp", "~tp4294967293-7-00c0ffee.tmp"}) {
      folder.Write(stray, "half");
    }
    const std::string path = folder.File("a.ini");
    ASSERT_TRUE((append ? files->Append(path, "a\r\n") : files->Replace(path, "a\r\n")).ok());
    EXPECT_EQ(folder.Names().size(), 2u);
  }
}

}  // namespace
}  // namespace tarnwell
