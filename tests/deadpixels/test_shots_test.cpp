#include <gtest/gtest.h>

#include "deadpixels/add_test_shot.h"
#include "deadpixels/assess_test_shots.h"
#include "deadpixels/dead_pixel_commands.h"
#include "deadpixels/repair_dead_pixels.h"
#include "tests/support/faulty_files.h"
#include "tests/support/pictures.h"
#include "tests/support/planted_shots.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

using Names = std::vector<std::string>;

constexpr char kCamera[] = "program\\Cameras\\Default";
constexpr char kFolder[] = "program\\Cameras\\Default\\~ Dead Pixels";
const GoOn kGoOn = [](double) { return true; };

std::string In(const std::string& name) { return std::string(kFolder) + "\\" + name; }

TEST(AddTestShotTest, EachTakesTheFirstFreeNumberAndReplacesNothing) {
  TestWindow window;
  window.folder.Write(In("8x6\\input2.bmp"), "not ours to touch");
  const struct {
    int level;
    const char* name;
    ShotKind kind;
  } kRows[] = {{0, "Input1.BMP", ShotKind::kDark},
               {9, "Input3.BMP", ShotKind::kDark},
               {250, "Input4.BMP", ShotKind::kLight}};
  for (const auto& row : kRows) {
    const std::string path = window.WriteBitmap("shot.bmp", Grey(8, 6, row.level));
    const auto added = AddTestShot(window.app, window.platform, path);
    ASSERT_TRUE(added.ok()) << added.status.message;
    EXPECT_EQ(added->name, row.name);
    EXPECT_EQ(added->kind, row.kind);
    EXPECT_EQ(window.folder.Read(In("8x6\\" + added->name)), window.folder.Read("shot.bmp"));
    ASSERT_TRUE(window.files->Delete(path).ok());
  }
  EXPECT_EQ(window.folder.Read(In("8x6\\input2.bmp")), "not ours to touch");
  EXPECT_EQ(window.folder.Names(In("8x6")).size(), 4u) << "something was left beside the shots";
}

TEST(AddTestShotTest, WhatCannotBeAddedIsNamedAndLeavesNothing) {
  TestWindow window;
  const std::string grey = window.WriteBitmap("grey.bmp", Grey(8, 6, 128));
  EXPECT_EQ(
      AddTestShot(window.app, window.platform, grey).status.message,
      window.files->Display(grey) + " is neither very bright or very dark, and cannot be assessed");
  const std::string text = window.folder.Write("text.jpg", "no photo");
  EXPECT_EQ(AddTestShot(window.app, window.platform, text).status.failure, Failure::kUnsupported);
  EXPECT_EQ(window.folder.Names(kCamera), Names{"Default"});

  const std::string dark = window.WriteBitmap("dark.bmp", Grey(8, 6, 3));
  FaultyFiles full;
  full.Fill();
  Platform platform{full,          window.platform.codec, window.platform.jpeg, window.dialogs,
                    window.events, window.clock,          window.clipboard};
  EXPECT_EQ(AddTestShot(window.app, platform, dark).status.failure, Failure::kDiskFull);
  EXPECT_EQ(window.folder.Names(kCamera), Names{"Default"});

  EXPECT_TRUE(AddTestShot(window.app, window.platform, dark).ok());
  const Status again = AddTestShot(window.app, window.platform, dark).status;
  EXPECT_EQ(again.failure, Failure::kExists);
  EXPECT_NE(again.message.find("Input1.BMP"), std::string::npos) << again.message;
  EXPECT_EQ(window.folder.Names(In("8x6")), Names{"Input1.BMP"});
}

// A camera with hot pixels, its photos and its test shots.
struct ShotWindow : TestWindow {
  PlantedCamera camera{11};

  using TestWindow::TestWindow;
  void AddShots() {
    camera.Plant(20, 120);
    folder.MakeFolder(In("192x128"));
    for (int i = 1; i <= 4; ++i) {
      WriteBitmap(In("192x128\\Input" + std::to_string(i) + ".BMP"), camera.Shot(i % 2 == 0));
    }
  }
};

TEST(AssessTestShotsTest, ItsMapRepairsPhotos) {
  ShotWindow window;
  window.AddShots();
  window.folder.Write(In("192x128\\MAP.bmp"), "an old map");
  const Assessment found = AssessTestShots(window.app, window.platform, {192, 128}, kGoOn);
  EXPECT_EQ(AssessmentText(found),
            "192x128: 20 stuck pixels found in 2 dark shots and 2 light shots");
  EXPECT_EQ(window.folder.Names(In("192x128")).size(), 5u) << "the old map is replaced";

  const Picture photo = window.camera.Shot(true);
  window.Show(photo);
  EXPECT_TRUE(RepairOpenedPhoto(window.form).ok());
  EXPECT_TRUE(window.tips.empty());
  const PixelView repaired = window.surfaces().picOriginal.image->view();
  for (int y = 0; y < 128; ++y) {
    for (int x = 0; x < 192; ++x) {
      EXPECT_LT(PixelAt(repaired, x, y).red, 40) << x << ", " << y;
    }
  }
}

TEST(AssessTestShotsTest, WhatCannotBeAssessedIsLeftOutAndNamed) {
  ShotWindow window;
  window.AddShots();
  window.folder.Write(In("192x128\\Input5.BMP"), "BM");
  window.WriteBitmap(In("192x128\\Input6.BMP"), Grey(128, 192, 0));
  window.WriteBitmap(In("192x128\\Input7.BMP"), Grey(192, 128, 99));
  const Assessment found = AssessTestShots(window.app, window.platform, {192, 128}, kGoOn);
  EXPECT_TRUE(found.status.ok()) << found.status.message;
  EXPECT_EQ(found.stuck_pixels, 20u);
  ASSERT_EQ(found.left_out.size(), 3u);
  EXPECT_NE(found.left_out[0].find("Input5.BMP"), std::string::npos);
  EXPECT_NE(found.left_out[1].find("Input6.BMP: has 128x192 pixels"), std::string::npos);
  EXPECT_NE(found.left_out[2].find("Input7.BMP is neither"), std::string::npos);
}

TEST(AssessTestShotsTest, AFailureLeavesTheOldMap) {
  auto full = std::make_unique<FaultyFiles>();
  full->Fill();
  ShotWindow window(std::move(full));
  window.AddShots();
  window.folder.Write(In("192x128\\map.bmp"), "old");
  window.folder.Write(In("9x9\\Input1.BMP"), "BM");
  window.folder.Write(In("9x9\\map.bmp"), "old");
  // Stars all over the sky in both shots.
  window.folder.MakeFolder(In("100x60"));
  window.folder.Write(In("100x60\\map.bmp"), "old");
  const auto sky = Grey(100, 60, 5);
  for (int i = 0; i < 60; ++i) {
    SetPixel(sky->mutable_view(), i * 37 % 100, i * 11 % 60, {200, 200, 200});
  }
  window.WriteBitmap(In("100x60\\Input1.BMP"), sky);

  const auto assess = [&](Resolution resolution, const GoOn& go_on) {
    const Assessment assessed = AssessTestShots(window.app, window.platform, resolution, go_on);
    EXPECT_EQ(window.folder.Read(In(ResolutionName(resolution) + "\\map.bmp")), "old");
    return assessed.status.failure;
  };
  EXPECT_EQ(assess({192, 128}, kGoOn), Failure::kDiskFull);
  EXPECT_EQ(assess({192, 128}, [](double share) { return share < 0.6; }), Failure::kCancelled);
  EXPECT_EQ(assess({9, 9}, kGoOn), Failure::kNotFound);
  EXPECT_EQ(assess({100, 60}, kGoOn), Failure::kUnsupported);
}

TEST(DeadPixelCommandsTest, TheUserChoosesAmongSeveralResolutions) {
  ShotWindow window;
  window.AddShots();
  const std::string other = window.WriteBitmap("other.bmp", Grey(40, 30, 0));
  AddTestShotsClick(window.form, [&](const std::string&) {
    return Names{other, window.folder.File("missing.jpg")};
  });
  ASSERT_EQ(window.dialogs.Told().size(), 1u);
  EXPECT_NE(window.dialogs.Told()[0].find("missing.jpg"), std::string::npos);
  EXPECT_NE(window.dialogs.Told()[0].find("1 dark, 0 light"), std::string::npos);

  AssessTestShotsClick(window.form,
                       [](const std::string& title, const std::string& text, const Names& entries) {
                         EXPECT_EQ(title, "Multiple Resolutions Found");
                         EXPECT_EQ(text, "Check the resolutions you would like to assess now:");
                         EXPECT_EQ(entries, (Names{"192x128", "40x30"}));
                         return std::vector<bool>{false, true};
                       });
  EXPECT_TRUE(window.folder.Holds(In("40x30\\map.bmp")));
  EXPECT_FALSE(window.folder.Holds(In("192x128\\map.bmp")));
  EXPECT_EQ(window.dialogs.Told().back(),
            "40x30: 0 stuck pixels found in 1 dark shot and 0 light shots");
}

}  // namespace
}  // namespace tarnwell
