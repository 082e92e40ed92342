#include "modules/profiles.h"

#include <gtest/gtest.h>

#include "tests/support/forwarding_files.h"
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

TEST(ProfilesTest, ANewModeBelongsToTheCurrentCamera) {
  TestWindow window;
  window.dialogs.texts = {"Night?"};
  NewMode(window.app, window.platform, window.modules);
  EXPECT_EQ(
      window.dialogs.shown,
      (std::vector<ScriptedDialogs::Shown>{
          {Kind::kAskText, "New Mode", "Type the name of the mode for the Default camera:"}}));
  EXPECT_TRUE(window.folder.Holds("program\\Cameras\\Default\\Night_"));
  EXPECT_EQ(window.modules.mode, "Night_");
  EXPECT_EQ(window.app.mode_folder, window.app.camera_folder + "Night_\\");
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
      const std::string camera_folder = window.app.camera_folder;
      const std::string mode_folder = window.app.mode_folder;
      window.modules.camera = "C";
      window.modules.mode = "M";
      window.dialogs.texts = {row.typed};
      command(window.app, window.platform, window.modules);
      EXPECT_EQ(window.dialogs.Told().size(), static_cast<std::size_t>(row.messages));
      EXPECT_EQ(window.folder.Names("program\\Cameras"), Names{"Default"});
      EXPECT_EQ(window.folder.Names("program\\Cameras\\Default"), Names{"Default"});
      EXPECT_EQ(window.modules.camera + window.modules.mode, "CM");
      EXPECT_EQ(window.app.camera_folder, camera_folder);
      EXPECT_EQ(window.app.mode_folder, mode_folder);
    }
  }
}

TEST(ProfilesTest, ATakenNameIsExplainedInPlainWords) {
  TestWindow window;
  window.dialogs.texts = {"Default"};
  NewMode(window.app, window.platform, window.modules);
  EXPECT_EQ(window.dialogs.shown.back(),
            (ScriptedDialogs::Shown{Kind::kTell, "Tarnwell Pocket",
                                    "Default: a mode of this name exists already, choose it from "
                                    "the list or type another name",
                                    Icon::kExclamation}));
}

// Refuses to make folders of one name.
class NoSuchFolder : public ForwardingFiles {
 public:
  explicit NoSuchFolder(std::string name)
      : ForwardingFiles(MakeSystemFiles()), name_(std::move(name)) {}
  Status CreateFolder(const std::string& folder) override {
    if (folder.ends_with(name_)) return Status::Error(Failure::kDiskFull, folder + ": disk full");
    return ForwardingFiles::CreateFolder(folder);
  }

 private:
  std::string name_;
};

TEST(ProfilesTest, ACameraWhoseModeCannotBeMadeLeavesNothing) {
  TestWindow window(std::make_unique<NoSuchFolder>("\\Default"));
  window.dialogs.texts = {"Second"};
  NewCamera(window.app, window.platform, window.modules);
  EXPECT_EQ(window.folder.Names("program\\Cameras"), Names{"Default"});
  EXPECT_EQ(window.modules.camera, "Default");
  EXPECT_EQ(window.dialogs.Told().size(), 1u);
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

TEST(ProfilesTest, AMissingCamerasFolderIsReported) {
  TestWindow window;
  window.app.cameras_root = window.folder.File("none") + "\\";
  EXPECT_FALSE(ListProfiles(window.app, *window.files, window.modules, ProfileList::kCameras).ok());
}

TEST(ProfilesTest, SelectingAModeReadsItsWhiteBalance) {
  TestWindow window;
  window.folder.Write("program\\Cameras\\Default\\Night\\White Balance.wbs",
                      "Red: 1\r\nGrn: 2\r\nBlu: 3\r\nSld: 181\r\n");
  window.modules.white_balance_mode = WhiteBalanceMode::kPickedPixel;
  SelectProfile(window.app, window.platform, window.modules, ProfileList::kModes, " Night");
  EXPECT_EQ(window.modules.mode, "Night");
  EXPECT_EQ(window.app.mode_folder, window.app.cameras_root + "Default\\Night\\");
  EXPECT_EQ(window.modules.lblWhiteClr, (Rgb{1, 2, 3}));
  EXPECT_EQ(window.modules.Value(2), 100);
  EXPECT_EQ(window.modules.white_balance_mode, WhiteBalanceMode::kModeDefault);
}

TEST(ProfilesTest, SelectingACameraSelectsItsModeDefault) {
  TestWindow window;
  window.folder.MakeFolder("program\\Cameras\\Second");
  window.modules.mode = "Night";
  SelectProfile(window.app, window.platform, window.modules, ProfileList::kCameras, " Second");
  EXPECT_EQ(window.modules.camera, "Second");
  EXPECT_EQ(window.modules.mode, "Default");
  EXPECT_EQ(window.app.camera_folder, window.app.cameras_root + "Second\\");
  EXPECT_EQ(window.app.mode_folder, window.app.cameras_root + "Second\\Default\\");
  EXPECT_TRUE(window.folder.Holds("program\\Cameras\\Second\\Default\\White Balance.wbs"));
}

TEST(ProfilesTest, MissingProfileFoldersAreMadeFromTheFirstThatExists) {
  TestWindow window;
  SetProgramFolder(window.app, window.folder.File("a\\b"), "TarnwellPocket");
  EXPECT_TRUE(EnsureProfileFolders(window.app, *window.files).ok());
  EXPECT_TRUE(window.folder.Holds("a\\b\\Cameras\\Default\\Default"));
  EXPECT_TRUE(EnsureProfileFolders(window.app, *window.files).ok());
}

TEST(ProfilesTest, AFileInTheWayOfAProfileFolderIsReported) {
  TestWindow window;
  window.folder.Write("a\\Cameras", "");
  SetProgramFolder(window.app, window.folder.File("a"), "TarnwellPocket");
  EXPECT_FALSE(EnsureProfileFolders(window.app, *window.files).ok());
}

}  // namespace
}  // namespace tarnwell
