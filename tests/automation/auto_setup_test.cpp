#include "automation/auto_setup.h"

#include <gtest/gtest.h>

#include "tests/support/memory_files.h"
#include "tests/support/scripted_dialogs.h"

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

}  // namespace
}  // namespace tarnwell
