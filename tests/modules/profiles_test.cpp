#include "modules/profiles.h"

#include <gtest/gtest.h>

#include "modules/profile_names.h"
#include "tests/support/faulty_files.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

using Names = std::vector<std::string>;
using Kind = ScriptedDialogs::Kind;

TEST(ProfilesTest, ANewCameraGetsAFolderWithAModeDefault) {
  TestWindow window;
  const std::string mode_folder = window.app.mode_folder;
  window.modules.mode = "Night";
  window.dialogs.texts = {"My/Cam:1"};
  NewCamera(window.app, window.platform, window.modules);

  EXPECT_EQ(window.dialogs.shown,
            (std::vector<ScriptedDialogs::Shown>{
                {Kind::kAskText, "New Camera", "Type the name of the camera:"}}));
  EXPECT_EQ(window.folder.Names("program\\Cameras\\My_Cam_1"), Names{"Default"});
  EXPECT_EQ(window.modules.camera, "My_Cam_1");
  EXPECT_EQ(window.app.camera_folder, window.app.cameras_root + "My_Cam_1\\");
  EXPECT_EQ(window.modules.mode, "Night");
  EXPECT_EQ(window.app.mode_folder, mode_folder);
}

TEST(ProfilesTest, ANameThatIsNotUsedMakesAndSelectsNothing) {
  struct Row {
    const char* typed;
    int messages;
  };
  for (const Row& row : {Row{"", 0}, Row{"..", 1}, Row{"nul", 1}, Row{"Default", 1}}) {
    for (auto* command : {&NewCamera, &NewMode}) {
      SCOPED_TRACE(row.typed);
      TestWindow window;
      const std::string mode_folder = window.app.mode_folder;
      window.modules.camera = "C";
      window.modules.mode = "M";
      window.dialogs.texts = {row.typed};
      command(window.app, window.platform, window.modules);
      EXPECT_EQ(window.dialogs.Told().size(), static_cast<std::size_t>(row.messages));
      EXPECT_EQ(window.folder.Names("program\\Cameras"), Names{"Default"});
      EXPECT_EQ(window.folder.Names("program\\Cameras\\Default"), Names{"Default"});
      EXPECT_EQ(window.modules.camera + window.modules.mode, "CM");
      EXPECT_EQ(window.app.mode_folder, mode_folder);
    }
  }
}

TEST(ProfilesTest, ListsHoldFoldersOnlySortedWithTheCurrentOneMarked) {
  TestWindow window;
  window.folder.Write("program\\Cameras\\file.txt", "");
  window.folder.MakeFolder("program\\Cameras\\zoo");
  window.folder.MakeFolder("program\\Cameras\\Yard");
  window.folder.MakeFolder("program\\Cameras\\Default\\night");
  window.folder.MakeFolder("program\\Cameras\\Default\\~ dead Pixels");
  window.folder.Write("program\\Cameras\\Default\\notes", "");
  const auto cameras =
      ListProfiles(window.app, *window.files, window.modules, ProfileList::kCameras);
  const auto modes = ListProfiles(window.app, *window.files, window.modules, ProfileList::kModes);
  ASSERT_TRUE(cameras.ok() && modes.ok());
  EXPECT_EQ(*cameras, (Names{">Default", " Yard", " zoo"}));
  EXPECT_EQ(*modes, (Names{">Default", " night"}));
}

TEST(ProfileNamesTest, SixCharactersBecomeUnderscores) {
  EXPECT_EQ(CleanProfileName("My/Cam:1"), "My_Cam_1");
  EXPECT_EQ(CleanProfileName("/\\|:\"?"), "______");
  EXPECT_EQ(CleanProfileName(" *<é>. "), " *<é>. ");
}

TEST(ProfileNamesTest, NamesThatCannotBeFoldersAreRefused) {
  for (const char* name :
       {"", ".", "..", "...", " ", " . ", "CON", "con", "Con.jpg", "nul .txt", "aux", "PRN ",
        "com1", "LPT9.x", "CONOUT$", "a\nb", "tab\t", "~ Dead Pixels", "~ DEAD pixels"}) {
    EXPECT_FALSE(CheckProfileName(name).ok()) << name;
  }
  for (const char* name : {"Default", "Night", "..a", ".hidden", "console", "com", "com0", "com10",
                           "lpt", "nulls", "My con", "写真", " a ", "a.", "~ Dead", "50% *new*"}) {
    EXPECT_TRUE(CheckProfileName(name).ok()) << name;
  }
}

}  // namespace
}  // namespace tarnwell
