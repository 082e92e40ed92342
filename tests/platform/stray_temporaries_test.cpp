#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/system.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

using Names = std::vector<std::string>;

// A name that this process gives, without the folder.
std::string OwnName(Files& files) {
  const TempFolder folder;
  return files.TemporaryBeside(folder.File("photo.jpg")).substr(folder.path().size() + 1);
}

// The same name from a process that has ended: no number as high is given out.
std::string OfEndedProcess(std::string name) {
  const std::size_t number = name.find_first_of("0123456789");
  return name.replace(number, name.find('-', number) - number, "999999999");
}

// The same from a machine or a container elsewhere, by the upper half of the session.
std::string FromElsewhere(std::string name) {
  char& place = name[name.size() - 12];
  place = place == '0' ? '1' : '0';
  return name;
}

TEST(StrayTemporariesTest, OnlyOwnFilesOfEndedProgramsGo) {
  TempFolder folder;
  const auto files = MakeSystemFiles();
  const std::string in_use = OwnName(*files);
  const std::string elsewhere = FromElsewhere(OfEndedProcess(in_use));
  folder.Write(in_use, "being written");
  folder.Write(elsewhere, "being written");
  // Of an earlier process that had the number of this one.
  std::string earlier = in_use;
  char& last_of_session = earlier[earlier.size() - 5];
  last_of_session = last_of_session == '0' ? '1' : '0';
  folder.Write(earlier, "half");
  folder.Write(OfEndedProcess(in_use), "half");
  const Names others = {".tarnwell-999999999-3-00c0ffee.tmp.jpg", ".tarnwell-1-3-00c0ffee.tmpx",
                        ".tarnwell--1-3-0.tmp", "a.jpg", "~tp12.tmp"};
  for (const std::string& other : others) folder.Write(other, "kept");
  EXPECT_EQ(DeleteStrayTemporaries(folder.path() + "\\"), 2);
  EXPECT_EQ(folder.Names().size(), others.size() + 2);
  EXPECT_TRUE(folder.Holds(in_use) && folder.Holds(elsewhere));

  // Nobody writes at a file for days.
  const auto path = folder.SystemPath(elsewhere);
  std::filesystem::last_write_time(path,
                                   std::filesystem::last_write_time(path) - std::chrono::hours(25));
  EXPECT_EQ(DeleteStrayTemporaries(folder.path() + "\\"), 1);
  EXPECT_FALSE(folder.Holds(elsewhere));
}

// Nobody has to remember to tidy up: whoever writes into a folder does.
TEST(StrayTemporariesTest, TheFirstWriteIntoAFolderDeletesThem) {
  const auto files = MakeSystemFiles();
  for (const bool append : {true, false}) {
    TempFolder folder;
    folder.Write(OfEndedProcess(OwnName(*files)), "half");
    const std::string path = folder.File("a.ini");
    ASSERT_TRUE((append ? files->Append(path, "a\r\n") : files->Replace(path, "a\r\n")).ok());
    EXPECT_EQ(folder.Names(), Names{"a.ini"});
  }
}

}  // namespace
}  // namespace tarnwell
