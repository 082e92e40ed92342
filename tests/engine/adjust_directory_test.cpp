#include "engine/adjust_directory.h"

#include <gtest/gtest.h>

#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "tests/support/pictures.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

// A window on the photo b.bmp of a folder with three photos and other things.
struct DirectoryWindow : TestWindow {
  DirectoryWindow() {
    app.open_mode = 2;
    for (const char* name : {"a.bmp", "b.bmp", "C.BMP"}) WriteBitmap(name, NoisyPicture(40, 30, 1));
    folder.Write("notes.txt", "no photo");
    app.opened_path = folder.File("b.bmp");
    EXPECT_TRUE(FileOpen(form, false).ok());
  }
};

const PhotoBegins kSilent = [](int, int, const std::string&) {};

TEST(AdjustDirectoryTest, CorrectsEveryPhotoAtFullSizeAndShowsTheOpenOneAgain) {
  DirectoryWindow window;
  const Picture original = window.surfaces().picOriginal.picture;
  const std::string proposed = window.form.names.output_path;
  std::vector<std::string> begun;
  const auto outcome =
      AdjustDirectory(window.form, [&](int number, int total, const std::string& name) {
        begun.push_back(std::to_string(number) + "/" + std::to_string(total) + " " + name);
      });
  ASSERT_TRUE(outcome.ok()) << outcome.status.message;
  EXPECT_EQ(outcome->corrected, 3);
  EXPECT_TRUE(outcome->failures.empty());
  EXPECT_EQ(begun, (std::vector<std::string>{"1/3 a.bmp", "2/3 b.bmp", "3/3 C.BMP"}));
  EXPECT_EQ(window.folder.Names("TWout"), (std::vector<std::string>{"C.jpg", "a.jpg", "b.jpg"}));
  const auto saved = window.codec->Load(window.folder.File("TWout\\a.jpg"));
  ASSERT_TRUE(saved.ok()) << saved.status.message;
  EXPECT_EQ((*saved)->width(), 40);

  EXPECT_EQ(window.surfaces().picOriginal.picture, original);
  EXPECT_EQ(window.app.current_file, window.folder.File("b.bmp"));
  EXPECT_EQ(window.form.names.output_path, proposed);
  EXPECT_EQ(window.form.caption, "b.bmp - Tarnwell Pocket");
  EXPECT_FALSE(window.app.photo_changed);
  EXPECT_TRUE(window.dialogs.shown.empty());
  EXPECT_FALSE(window.folder.Holds("program\\Cameras\\Default\\Default\\Smart Data.tsd"));
}

TEST(AdjustDirectoryTest, ASecondRunReplacesNothing) {
  DirectoryWindow window;
  ASSERT_TRUE(AdjustDirectory(window.form, kSilent).ok());
  const std::string first = window.folder.Read("TWout\\a.jpg");
  ASSERT_TRUE(AdjustDirectory(window.form, kSilent).ok());
  EXPECT_EQ(window.folder.Read("TWout\\a.jpg"), first);
  EXPECT_EQ(window.folder.Names("TWout").size(), 6u);
  EXPECT_TRUE(window.folder.Holds("TWout\\a~1.jpg"));
}

TEST(AdjustDirectoryTest, APhotoThatCannotBeReadIsNamedAndTheRestGoesOn) {
  DirectoryWindow window;
  window.folder.Write("aa.jpg", "this is no photo");
  const auto outcome = AdjustDirectory(window.form, kSilent);
  ASSERT_TRUE(outcome.ok());
  EXPECT_EQ(outcome->corrected, 3);
  ASSERT_EQ(outcome->failures.size(), 1u);
  EXPECT_NE(outcome->failures[0].find("aa.jpg"), std::string::npos);
}

TEST(AdjustDirectoryTest, CancelEndsAfterTheColumnInHand) {
  DirectoryWindow window;
  const auto outcome = AdjustDirectory(window.form, [&](int number, int, const std::string&) {
    if (number == 2) window.app.cancel_requested = true;
  });
  ASSERT_TRUE(outcome.ok());
  EXPECT_TRUE(outcome->cancelled);
  EXPECT_EQ(outcome->corrected, 1);
  EXPECT_EQ(window.folder.Names("TWout"), (std::vector<std::string>{"a.jpg"}));
}

}  // namespace
}  // namespace tarnwell
