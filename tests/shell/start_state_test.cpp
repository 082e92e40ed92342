#include "shell/start_state.h"

#include <gtest/gtest.h>

#include "engine/learning_store.h"
#include "shell/profile_selection.h"
#include "shell/settings_store.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

constexpr char kNight[] = "program\\Cameras\\Phone\\Night\\";

std::string Record() {
  return FormatLearningRecord({612, 30, 229, 7, 0.5, 0.1, 0.4, 0.2, 700, 0}) + "\r\n";
}

// A window whose camera "Phone" has the mode "Night" with a white balance and two learnt records.
struct WindowWithNight : TestWindow {
  WindowWithNight() {
    folder.Write(std::string(kNight) + "White Balance.wbs",
                 "Red: 10\r\nGrn: 20\r\nBlu: 30\r\nSld: 145\r\n");
    folder.Write(std::string(kNight) + kLearningFile, Record() + Record());
    folder.Write("program\\Cameras\\Default\\Default\\Smart Data.tsd", Record());
  }
  std::string Profile() const { return modules.camera + "/" + modules.mode; }
};

TEST(ProfileSelectionTest, SelectingBringsFoldersWhiteBalanceAndLearning) {
  WindowWithNight window;
  window.modules.white_balance_mode = WhiteBalanceMode::kPickedPixel;
  SelectCameraAndMode(window.form, "Phone", "Night");
  EXPECT_EQ(window.Profile(), "Phone/Night");
  EXPECT_EQ(window.app.mode_folder, window.folder.File(kNight));
  EXPECT_EQ(window.modules.white_balance_mode, WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(window.modules.lblWhiteClr, (Rgb{10, 20, 30}));
  EXPECT_EQ(window.modules.sliders[2].text, "80");
  EXPECT_EQ(window.form.learning.records.size(), 2u);

  ProfileEntry_Click(window.form, ProfileList::kModes, " Day");
  EXPECT_EQ(window.Profile(), "Phone/Day");
  EXPECT_TRUE(window.folder.Holds("program\\Cameras\\Phone\\Day\\White Balance.wbs"));
  EXPECT_TRUE(window.form.learning.records.empty());

  ProfileEntry_Click(window.form, ProfileList::kModes, " Night");
  EXPECT_EQ(window.form.learning.records.size(), 2u);
  ProfileEntry_Click(window.form, ProfileList::kCameras, ">Default");
  EXPECT_EQ(window.Profile(), "Default/Default");
  EXPECT_EQ(window.form.learning.records.size(), 1u);
  EXPECT_TRUE(window.dialogs.shown.empty());
}

TEST(StartStateTest, CameraAndModeComeBackWhereTheirFoldersAreStillThere) {
  const struct {
    const char* camera;
    const char* mode;
    const char* expected;
  } kRows[] = {
      {"Phone", "Night", "Phone/Night"},    {"Phone", "Gone", "Phone/Default"},
      {"Gone", "Night", "Default/Default"}, {"..", "Cameras", "Default/Default"},
      {"Phone", "..", "Phone/Default"},     {"Phone\\Night", "", "Default/Default"},
  };
  for (const auto& row : kRows) {
    WindowWithNight before, window;
    window.folder.MakeFolder("program\\Cameras\\Phone\\~ Dead Pixels");
    before.modules.camera = row.camera;
    before.modules.mode = row.mode;
    ASSERT_TRUE(INISave(before.form).ok());
    window.folder.Write("program\\TarnwellPocket.ini",
                        before.folder.Read("program\\TarnwellPocket.ini"));
    LoadStartState(window.form);
    EXPECT_EQ(window.Profile(), row.expected) << row.camera << "/" << row.mode;
    const bool night = window.Profile() == "Phone/Night";
    EXPECT_EQ(window.modules.lblWhiteClr, (night ? Rgb{10, 20, 30} : Rgb{192, 192, 192}));
    EXPECT_TRUE(window.dialogs.shown.empty());
  }
}

TEST(StartStateTest, AWhiteReferenceOfOnesOwnStaysInForce) {
  TestWindow window;
  window.modules.custom_white_file =
      window.folder.Write("snow.wbs", "Red: 1\r\nGrn: 2\r\nBlu: 3\r\nSld: 0\r\n");
  window.modules.picked_white = Rgb{7, 8, 9};
  SetSliderValue(window.modules, 2, 61);

  const std::pair<WhiteBalanceMode, Rgb> kept[] = {{WhiteBalanceMode::kPickedPixel, {7, 8, 9}},
                                                   {WhiteBalanceMode::kCustomFile, {1, 2, 3}}};
  for (const auto& [mode, white] : kept) {
    window.modules.white_balance_mode = mode;
    SelectStartProfile(window.form);
    EXPECT_EQ(window.modules.white_balance_mode, mode);
    EXPECT_EQ(window.modules.lblWhiteClr, white);
    EXPECT_EQ(window.modules.sliders[2].text, "61");
  }

  ASSERT_TRUE(window.files->Delete(window.modules.custom_white_file).ok());
  SelectStartProfile(window.form);
  EXPECT_EQ(window.modules.white_balance_mode, WhiteBalanceMode::kModeDefault);
  EXPECT_EQ(window.modules.custom_white_file, "");
  EXPECT_TRUE(window.dialogs.shown.empty());
}

}  // namespace
}  // namespace tarnwell
