#include <gtest/gtest.h>

#include "deadpixels/dead_pixel_reset.h"
#include "deadpixels/repair_dead_pixels.h"
#include "tests/support/pictures.h"
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
  window.dialogs.answers = {Answer::kNo, Answer::kYes};
  ResetDeadPixelSystem(window.app, window.platform);
  EXPECT_EQ(window.folder.Names(kFolder).size(), 4u);
  ResetDeadPixelSystem(window.app, window.platform);
  EXPECT_EQ(window.folder.Names(kFolder), Names{});
  EXPECT_EQ(window.folder.Names(kCamera), (Names{"Default", "~ Dead Pixels"}));
  EXPECT_EQ(window.folder.Names("program\\Cameras\\Default\\Default"), Names{"Smart Data.tsd"});
  EXPECT_TRUE(window.folder.Holds("program\\Cameras\\Other\\~ Dead Pixels\\8x8\\map.bmp"));
  const Shown result{ScriptedDialogs::Kind::kTell, "Reset Learning System",
                     "Dead pixel system for current camera has been reset.", Icon::kInformation};
  EXPECT_EQ(window.dialogs.shown, (std::vector{kQuestion, kQuestion, result}));
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

TEST(RepairDeadPixelsTest, TheSearchEndsAtAHundred) {
  for (const int distance : {100, 101}) {
    PixelArray row(distance + 1, 1);
    PixelArray map(distance + 1, 1);
    SetPixel(row.mutable_view(), 0, 0, {7, 7, 7});
    for (int x = 1; x <= distance; ++x) SetPixel(map.mutable_view(), x, 0, {255, 0, 0});
    SetPixel(row.mutable_view(), distance, 0, {200, 200, 200});
    RepairDeadPixels(row.mutable_view(), map.view(), 50);
    EXPECT_EQ(PixelAt(row.view(), distance, 0).red, distance == 100 ? 7 : 200);
  }
}

}  // namespace
}  // namespace tarnwell
