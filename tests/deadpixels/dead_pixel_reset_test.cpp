#include "deadpixels/dead_pixel_reset.h"

#include <gtest/gtest.h>

#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

using Names = std::vector<std::string>;
using Shown = ScriptedDialogs::Shown;

constexpr char kCamera[] = "program\\Cameras\\Default";
constexpr char kFolder[] = "program\\Cameras\\Default\\~ Dead Pixels";

const Shown kQuestion{ScriptedDialogs::Kind::kAsk, "Reset Learning System",
                      "This will permanently delete the dead pixel maps and sample images for the "
                      "current camera, continue?",
                      Icon::kExclamation};

struct SampledCamera : TestWindow {
  SampledCamera() {
    for (const char* name :
         {"\\640x480\\map.bmp", "\\640x480\\shot 1.jpg", "\\8x8\\a", "\\notes"}) {
      folder.Write(std::string(kFolder) + name, "x");
    }
    folder.MakeFolder(std::string(kFolder) + "\\empty");
    folder.Write("program\\Cameras\\Default\\Default\\Smart Data.tsd", "1");
    folder.Write("program\\Cameras\\Other\\~ Dead Pixels\\8x8\\map.bmp", "x");
  }
};

TEST(ResetDeadPixelSystemTest, YesEmptiesTheFolderOfTheCameraOnly) {
  SampledCamera window;
  window.dialogs.answers = {Answer::kYes};
  ResetDeadPixelSystem(window.app, window.platform);
  EXPECT_EQ(window.folder.Names(kFolder), Names{});
  EXPECT_EQ(window.folder.Names(kCamera), (Names{"Default", "~ Dead Pixels"}));
  EXPECT_EQ(window.folder.Names("program\\Cameras\\Default\\Default"), Names{"Smart Data.tsd"});
  EXPECT_TRUE(window.folder.Holds("program\\Cameras\\Other\\~ Dead Pixels\\8x8\\map.bmp"));
  const Shown result{ScriptedDialogs::Kind::kTell, "Reset Learning System",
                     "Dead pixel system for current camera has been reset.", Icon::kInformation};
  EXPECT_EQ(window.dialogs.shown, (std::vector{kQuestion, result}));
}

TEST(ResetDeadPixelSystemTest, AnyOtherAnswerKeepsEverything) {
  for (const Answer answer : {Answer::kNo, Answer::kCancel}) {
    SampledCamera window;
    window.dialogs.answers = {answer};
    ResetDeadPixelSystem(window.app, window.platform);
    EXPECT_EQ(window.folder.Names(kFolder), (Names{"640x480", "8x8", "empty", "notes"}));
    EXPECT_EQ(window.folder.Names(std::string(kFolder) + "\\640x480").size(), 2u);
    EXPECT_EQ(window.dialogs.shown, std::vector{kQuestion});
  }
}

TEST(ResetDeadPixelSystemTest, ACameraWithoutSamplesIsResetAlready) {
  TestWindow window;
  EXPECT_TRUE(DeleteDeadPixelData(window.app, *window.files).ok());
  EXPECT_EQ(window.folder.Names(kCamera), Names{"Default"});
}

TEST(ResetDeadPixelSystemTest, WhatALinkLeadsToStays) {
  SampledCamera window;
  window.folder.Write("album\\photo.jpg", "x");
  std::error_code refused;
  std::filesystem::create_directory_symlink(
      window.folder.SystemPath("album"),
      window.folder.SystemPath(std::string(kFolder) + "\\800x600"), refused);
  if (refused) GTEST_SKIP() << "no links here: " << refused.message();
  EXPECT_TRUE(DeleteDeadPixelData(window.app, *window.files).ok());
  EXPECT_EQ(window.folder.Names(kFolder), Names{});
  EXPECT_EQ(window.folder.Names("album"), Names{"photo.jpg"});
}

TEST(ResetDeadPixelSystemTest, WhatCannotGoIsNamedAndTheRestGoes) {
  SampledCamera window;
  window.folder.Write(std::string(kFolder) + "\\640x480\\below\\kept", "x");
  window.dialogs.answers = {Answer::kYes};
  ResetDeadPixelSystem(window.app, window.platform);
  EXPECT_EQ(window.folder.Names(kFolder), Names{"640x480"});
  EXPECT_EQ(window.folder.Names(std::string(kFolder) + "\\640x480"), Names{"below"});
  ASSERT_EQ(window.dialogs.Told().size(), 1u);
  EXPECT_NE(window.dialogs.Told()[0].find("640x480"), std::string::npos);
  EXPECT_EQ(window.dialogs.shown.back().icon, Icon::kExclamation);
}

}  // namespace
}  // namespace tarnwell
