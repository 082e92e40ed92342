#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>

#include "automation/auto_setup.h"
#include "automation/free_name.h"
#include "automation/memory_budget.h"
#include "automation/photo_workers.h"
#include "platform/files.h"
#include "platform/system.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

constexpr char kFile[] = "C:\\TP\\autosetup.ini";
const AutoFolders kBefore = {"C:\\a\\", "C:\\b\\", "C:\\c\\"};

TEST(AutoSetupTest, LoadsThreeLinesOrChangesNothing) {
  const struct {
    const char* name;
    const char* text;  // null: no file
    AutoFolders expected;
    bool ok;
  } rows[] = {
      {"as written",
       "C:\\in\\\r\nC:\\out\\\r\nC:\\done\\\r\n",
       {"C:\\in\\", "C:\\out\\", "C:\\done\\"},
       true},
      {"by hand",
       "C:\\in\nC:\\\xC3\xA4 b\nC:\\done",
       {"C:\\in\\", "C:\\\xC3\xA4 b\\", "C:\\done\\"},
       true},
      {"missing", nullptr, kBefore, true},
      {"breaks off", "C:\\in\\\r\nC:\\out\\\r\n", kBefore, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    MemoryFiles files;
    if (row.text) files.files[kFile] = row.text;
    AutoFolders folders = kBefore;
    EXPECT_EQ(LoadAutoSetup(files, "C:\\TP\\", folders).ok(), row.ok);
    EXPECT_EQ(folders, row.expected);
  }
}

TEST(AutoSetupTest, OkCompletesTheFoldersAndKeepsThem) {
  MemoryFiles files;
  ScriptedDialogs dialogs;
  dialogs.folders = {"C:\\chosen", std::nullopt};
  AutoFolders folders = kBefore;
  frmAutoSetup window(folders);
  window.BrowseClicked(kInputFolder, dialogs);
  window.BrowseClicked(kOutputFolder, dialogs);
  EXPECT_EQ(dialogs.shown[0].title, "Please choose a folder.");
  ASSERT_TRUE(window.OkClicked(files, "C:\\TP\\", folders).ok());
  EXPECT_EQ(folders, (AutoFolders{"C:\\chosen\\", "C:\\b\\", "C:\\c\\"}));
  EXPECT_EQ(files.files[kFile], "C:\\chosen\\\r\nC:\\b\\\r\nC:\\c\\\r\n");
}

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

TEST(ForEachPhotoTest, WhatIsThrownArrivesAtTheCallerAndEndsTheRest) {
  for (const int workers : {1, 4}) {
    std::atomic<int> begun = 0;
    const auto begin = [&](std::size_t) { return ++begun <= 20; };
    const auto work = [&](std::size_t i) {
      if (i >= 3) throw std::bad_alloc();
    };
    EXPECT_THROW(ForEachPhoto(1000, workers, begin, work), std::bad_alloc);
    EXPECT_LE(begun, 20);
  }
}

TEST(MemoryBudgetTest, NeverMoreThanTheBudgetOrOneAlone) {
  // In the order of the photos: small ones of 30, and one larger than all there is.
  const std::vector<std::uint64_t> sizes = {30, 30, 30, 30, 500, 30, 30, 30, 30, 30};
  MemoryBudget budget(100);
  EXPECT_EQ(budget.Fitting(30), 3);
  EXPECT_EQ(budget.Fitting(500), 1);
  std::atomic<std::uint64_t> in_work = 0;
  std::atomic<int> done = 0;
  std::vector<std::size_t> begun;
  std::atomic<bool> too_much = false;
  ForEachPhoto(
      sizes.size(), 8,
      [&](std::size_t i) {
        budget.Take(sizes[i]);
        const std::uint64_t now = in_work += sizes[i];
        if (now > 100 && now != sizes[i]) too_much = true;
        begun.push_back(i);
        return i != 8;  // the ninth is not begun, nor is any after it
      },
      [&](std::size_t i) {
        ++done;
        in_work -= sizes[i];
        budget.GiveBack(sizes[i]);
      });
  EXPECT_FALSE(too_much);
  EXPECT_EQ(done, 8);
  EXPECT_TRUE(std::ranges::is_sorted(begun));
}

}  // namespace
}  // namespace tarnwell
