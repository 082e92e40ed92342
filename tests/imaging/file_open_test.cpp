#include "imaging/file_open.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "imaging/load_photo.h"
#include "modules/module_table.h"
#include "tests/support/pictures.h"
#include "tests/support/test_window.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

// A window with the photo img.bmp of 24 x 18 pixels open, panel left alone at opening.
struct OpenedWindow : TestWindow {
  Picture photo = NoisyPicture(24, 18, 1);

  OpenedWindow() {
    app.open_mode = 2;
    app.opened_path = WriteBitmap("img.bmp", photo);
    const Status opened = FileOpen(form, false);
    EXPECT_TRUE(opened.ok()) << opened.message;
  }
};

TEST(FileOpenTest, TheHueSwatchesShowThePhotosMeanColour) {
  TestWindow window;
  const auto photo = std::make_shared<PixelArray>(2, 1);
  SetPixel(photo->mutable_view(), 0, 0, {10, 200, 255});
  SetPixel(photo->mutable_view(), 1, 0, {21, 1, 255});
  ASSERT_TRUE(OpenPhotoFile(window.form, window.WriteBitmap("two.bmp", photo)).ok());
  // 15.5 and 100.5 go to the even neighbour.
  EXPECT_EQ(window.modules.hue.lblHue[0], (Rgb{16, 100, 255}));
  EXPECT_EQ(window.modules.hue.lblHue[1], (Rgb{16, 100, 255}));
}

TEST(FileOpenTest, TakesThePhotoIntoTheWindow) {
  OpenedWindow window;
  EXPECT_EQ(*window.surfaces().picOriginal.picture, *window.photo);
  EXPECT_EQ(window.surfaces().picSource.picture, window.surfaces().picOriginal.picture);
  EXPECT_EQ(*window.surfaces().picThumb.picture, *window.photo);
  EXPECT_TRUE(window.surfaces().picThumb.visible);
  EXPECT_FALSE(window.surfaces().picSource.visible);
  EXPECT_EQ(window.app.current_file, window.folder.File("img.bmp"));
  EXPECT_EQ(window.form.lblTitleCaption, " - img.bmp");
  EXPECT_EQ(window.form.caption, "img.bmp - Tarnwell Pocket");
  EXPECT_EQ(window.form.names.output_path, window.folder.File("imgA.bmp"));
  EXPECT_TRUE(window.form.correction_ready);
  EXPECT_FALSE(window.app.photo_changed);
  EXPECT_TRUE(window.dialogs.shown.empty());
}

TEST(FileOpenTest, ThePathComesFromTheDialog) {
  TestWindow window;
  const std::string path = window.WriteBitmap("Лето.bmp", NoisyPicture(3, 2, 2));
  window.dialogs.open_files = {path, std::nullopt, ""};
  EXPECT_TRUE(FileOpen(window.form, true).ok());
  EXPECT_EQ(window.app.opened_path, path);
  EXPECT_EQ(window.form.lblTitleCaption, " - Лето.bmp");
  for (int cancelled = 0; cancelled < 2; ++cancelled) {
    EXPECT_EQ(FileOpen(window.form, true).failure, Failure::kCancelled);
    EXPECT_EQ(window.app.current_file, path);
  }
  EXPECT_EQ(window.dialogs.shown[0],
            (ScriptedDialogs::Shown{ScriptedDialogs::Kind::kOpenFile, "Open Photo",
                                    "Image Files (*.bmp; *.gif; *.jpg)|*.bmp;*.gif;*.jpg"}));
}

TEST(FileOpenTest, AnOpenThatComesToNothingLeavesTheWindowAlone) {
  const struct {
    const char* name;
    bool cancel_reading, cancel_repair;
  } kRows[] = {{"other.bmp", true, false},
               {"other.bmp", false, true},
               {"cut.jpg", false, false},
               {"text.jpg", false, false},
               {"missing.jpg", false, false}};
  for (const auto& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.name << row.cancel_repair);
    OpenedWindow window;
    const std::string path = window.folder.File(row.name);
    window.WriteBitmap("other.bmp", NoisyPicture(30, 20, 2));
    window.folder.Write("cut.jpg", kBaselineJpeg.substr(0, 300));
    window.folder.Write("text.jpg", "not a photo");
    window.folder.MakeFolder("program\\Cameras\\Default\\~ Dead Pixels\\30x20");
    window.WriteBitmap("program\\Cameras\\Default\\~ Dead Pixels\\30x20\\map.bmp",
                       NoisyPicture(30, 20, 3));
    window.modules.open[kDeadPixelCorrection] = 1;
    SetSliderValue(window.modules, 3, 40);
    window.app.open_mode = 1;
    window.app.photo_changed = true;
    window.app.learning_record = "record";
    const PhotoSurfaces before = window.surfaces();

    const bool cancelled = row.cancel_reading || row.cancel_repair;
    window.events.on_run = [&](int) {
      const bool in_repair = window.app.current_file == path;
      if (in_repair ? row.cancel_repair : row.cancel_reading) window.app.cancel_requested = true;
    };
    const Status opened = OpenPhotoFile(window.form, path);
    EXPECT_FALSE(opened.ok());
    EXPECT_EQ(opened.failure == Failure::kCancelled, cancelled);
    EXPECT_TRUE(cancelled || opened.message.find(row.name) != std::string::npos) << opened.message;
    EXPECT_EQ(window.surfaces().picOriginal.picture, before.picOriginal.picture);
    EXPECT_EQ(window.surfaces().picThumb.picture, before.picThumb.picture);
    EXPECT_EQ(window.app.current_file, window.folder.File("img.bmp"));
    EXPECT_EQ(window.form.caption, "img.bmp - Tarnwell Pocket");
    EXPECT_EQ(window.form.names.output_path, window.folder.File("imgA.bmp"));
    EXPECT_EQ(window.modules.Value(3), 40);
    EXPECT_EQ(window.app.learning_record, "record");
    EXPECT_TRUE(window.app.photo_changed && window.form.correction_ready);
    EXPECT_FALSE(window.app.cancel_requested) << "no correction was cancelled";
    EXPECT_TRUE(window.dialogs.Told().empty());

    window.events.on_run = nullptr;
    EXPECT_EQ(OpenPhotoFile(window.form, path).ok(), cancelled) << "a second time";
  }
}

// A picture without pixels stands for the lack of memory: it has no preview either.
TEST(FileOpenTest, WithoutMemoryForThePreviewNothingIsOpened) {
  const LoadedPhoto no_preview = {std::make_shared<PixelArray>(), nullptr};
  TestWindow empty;
  OpenedWindow opened;
  for (TestWindow* window : {&empty, static_cast<TestWindow*>(&opened)}) {
    const PhotoSurfaces before = window->surfaces();
    const std::string current = window->app.current_file;
    const std::string path = window->folder.File("large.jpg");
    Status status = OpenLoadedPhoto(window->form, path, no_preview);
    EXPECT_EQ(status.failure, Failure::kTooLarge);
    EXPECT_EQ(status.message, window->files->Display(path) + ": not enough memory");
    status = OpenLoadedPhoto(window->form, "", no_preview);
    EXPECT_EQ(status.message, "the current image: not enough memory") << "pasted";
    EXPECT_EQ(window->surfaces().picOriginal.picture, before.picOriginal.picture);
    EXPECT_EQ(window->surfaces().picThumb.picture, before.picThumb.picture);
    EXPECT_EQ(window->app.current_file, current);
  }
}

TEST(FileOpenTest, ThePanelTheLearningAndThePreviewFollowTheNewPhoto) {
  for (const int open_mode : {1, 2}) {
    OpenedWindow window;
    SetSliderValue(window.modules, 3, 40);
    window.app.open_mode = open_mode;
    window.app.learning_record = "of the photo before";
    EXPECT_TRUE(FileOpen(window.form, false).ok());
    EXPECT_EQ(window.modules.Value(3), open_mode == 1 ? 0 : 40);
    EXPECT_EQ(window.app.learning_record, "");
    EXPECT_FALSE(window.app.photo_changed);
    window.app.auto_preview = true;
    EXPECT_TRUE(FileOpen(window.form, false).ok());
    EXPECT_TRUE(window.app.photo_changed);
  }
}

TEST(AskToSaveChangesTest, GoesOnUnlessChangesWouldBeLost) {
  const struct {
    const char* name;
    Answer answer;
    std::optional<std::string> output;  // in the folder; nothing: the dialog comes up
    bool goes_on;
    bool still_changed;
    std::size_t told;
  } kRows[] = {
      {"cancel", Answer::kCancel, "imgA.bmp", false, true, 0},
      {"no", Answer::kNo, "imgA.bmp", true, true, 0},
      {"yes", Answer::kYes, "imgA.bmp", true, false, 0},
      {"yes, save dialog cancelled", Answer::kYes, std::nullopt, false, true, 0},
      {"yes, cannot be written", Answer::kYes, "no folder\\imgA.bmp", false, true, 1},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    OpenedWindow window;
    window.app.photo_changed = true;
    window.form.names.output_path = row.output ? window.folder.File(*row.output) : "";
    window.dialogs.answers = {row.answer};
    window.dialogs.save_files = {std::nullopt};
    EXPECT_EQ(AskToSaveChanges(window.form), row.goes_on);
    EXPECT_EQ(window.app.photo_changed, row.still_changed);
    EXPECT_EQ(window.dialogs.Told().size(), row.told);
    EXPECT_EQ(window.folder.Holds("imgA.bmp"), row.answer == Answer::kYes && row.goes_on);
    EXPECT_EQ(window.dialogs.shown[0],
              (ScriptedDialogs::Shown{ScriptedDialogs::Kind::kAsk, "Tarnwell Pocket",
                                      "Do you want to save the changes you made to img.bmp?",
                                      Icon::kQuestion}));
  }
}

}  // namespace
}  // namespace tarnwell
