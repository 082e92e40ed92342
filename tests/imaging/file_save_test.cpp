#include "imaging/file_save.h"

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "tests/support/faulty_files.h"
#include "tests/support/pictures.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

using Kind = ScriptedDialogs::Kind;
using Shown = ScriptedDialogs::Shown;

constexpr char kLearningFileInFolder[] = "program\\Cameras\\Default\\Default\\Smart Data.tsd";
const Shown kNameTaken{Kind::kTell, "Photo File Exists...",
                       "Tarnwell Pocket has detected that a photo with the file already exists. "
                       "Tarnwell Pocket currently has a policy of not overwriting photos, please "
                       "define a different name for this photo.",
                       Icon::kExclamation};
const Shown kSaveDialog{Kind::kSaveFile, "Save Photo",
                        "JPEG Image (*.jpg)|*.jpg|Bitmap (*.bmp)|*.bmp"};

// A window with img.bmp open (16 x 12, level 100) and a correction of it (level 200) unsaved.
struct CorrectedWindow : TestWindow {
  Picture corrected = Grey(16, 12, 200);

  explicit CorrectedWindow(std::unique_ptr<Files> with_files = MakeSystemFiles(),
                           std::unique_ptr<JpegLibrary> with_jpeg = MakeSystemJpegLibrary())
      : TestWindow(std::move(with_files), std::move(with_jpeg)) {
    app.open_mode = 2;
    app.opened_path = WriteBitmap("img.bmp", Grey(16, 12, 100));
    const Status opened = FileOpen(form, false);
    EXPECT_TRUE(opened.ok()) << opened.message;
    Correct(corrected);
  }

  // Leaves the window as a correction run with this result would.
  void Correct(const Picture& result) {
    Display(surfaces().picSource, result);
    app.photo_changed = true;
    app.learning_record = "1\t2";
  }

  // The files in the photo's folder besides the opened photo.
  std::vector<std::string> Saved() const {
    std::vector<std::string> names = folder.Names();
    std::erase(names, "img.bmp");
    std::erase(names, "program");
    return names;
  }

  void ExpectNothingSaved() {
    EXPECT_EQ(Saved(), std::vector<std::string>{});
    EXPECT_TRUE(app.photo_changed);
    EXPECT_TRUE(form.correction_ready);
    EXPECT_EQ(surfaces().picOriginal.picture->view().at(0, 0)[kRed], 100);
    EXPECT_EQ(form.caption, "img.bmp - Tarnwell Pocket");
    EXPECT_FALSE(folder.Holds(kLearningFileInFolder));
  }
};

using Strings = std::vector<std::string>;

TEST(FileSaveTest, TheSavedResultBecomesTheOriginal) {
  CorrectedWindow window;
  const Status saved = FileSave(window.form, false);
  ASSERT_TRUE(saved.ok()) << saved.message;
  EXPECT_EQ(window.Saved(), Strings{"imgA.bmp"});
  EXPECT_EQ(**window.codec->Load(window.folder.File("imgA.bmp")), *window.corrected);
  EXPECT_EQ(window.surfaces().picOriginal.picture, window.corrected);
  EXPECT_EQ(window.form.lblTitleCaption, " - imgA.bmp");
  EXPECT_EQ(window.form.caption, "imgA.bmp - Tarnwell Pocket");
  EXPECT_FALSE(window.form.correction_ready);
  EXPECT_FALSE(window.app.photo_changed);
  EXPECT_EQ(window.folder.Read(kLearningFileInFolder), "1\t2\r\n");
  EXPECT_TRUE(window.dialogs.shown.empty());
  EXPECT_TRUE(window.notifications.empty());
  // Names still follow the opened photo.
  EXPECT_EQ(window.form.names.output_path, window.folder.File("imgB.bmp"));
}

TEST(FileSaveTest, TheExtensionDecidesTheFormat) {
  const struct {
    const char* name;
    bool jpeg;
  } kRows[] = {
      {"out.jpg", true},  {"out.Jpg", true}, {"Лето.jpeg", true},
      {"out.bmp", false}, {"out", false},    {"out.jpg.bak", false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    CorrectedWindow window;
    window.form.names.output_path = window.folder.File(row.name);
    const Status saved = FileSave(window.form, true);
    ASSERT_TRUE(saved.ok()) << saved.message;
    EXPECT_EQ(window.Saved(), Strings{row.name});
    EXPECT_EQ(window.folder.Read(row.name).substr(0, 2), row.jpeg ? "\xFF\xD8" : "BM");
    const std::string path = window.folder.File(row.name);
    EXPECT_NEAR((*window.codec->Load(path))->view().at(15, 11)[kGreen], 200, 2);
    // A bitmap is announced as failed although it was written.
    EXPECT_EQ(window.notifications,
              (std::vector<TestWindow::Notification>{
                  {row.jpeg ? path : "(ERROR) Failed to saved image to: " + path, 1800}}));
  }
}

TEST(FileSaveTest, TheQualityIsThePanelsAndMustBeANumber) {
  CorrectedWindow window;
  window.Show(RandomPixels(64, 64));
  std::size_t last = 0;
  for (const char* quality : {"0", "50", "100", "best"}) {
    window.modules.sliders[6].text = quality;
    const std::string name = std::string(quality) + ".jpg";
    window.form.names.output_path = window.folder.File(name);
    const Status saved = FileSave(window.form, false);
    EXPECT_EQ(saved.ok(), name != "best.jpg") << saved.message;
    EXPECT_EQ(saved.ok(), window.folder.Read(name).size() > last);
    last = window.folder.Read(name).size();
  }
}

TEST(FileSaveTest, ATakenNameIsNeverReplaced) {
  CorrectedWindow window;
  for (const char* name : {"imgA.bmp", "one.bmp", "two.jpg"}) window.folder.Write(name, "mine");
  window.folder.MakeFolder("three.bmp");
  const auto path = [&](const char* name) { return std::optional(window.folder.File(name)); };
  window.dialogs.save_files = {path("one.bmp"), path("two.jpg"), path("three.bmp"),
                               path("four.bmp")};
  EXPECT_TRUE(FileSave(window.form, false).ok());
  EXPECT_EQ(window.dialogs.shown,
            (std::vector<Shown>{kNameTaken, kSaveDialog, kNameTaken, kSaveDialog, kNameTaken,
                                kSaveDialog, kNameTaken, kSaveDialog}));
  for (const char* name : {"imgA.bmp", "one.bmp", "two.jpg"}) {
    EXPECT_EQ(window.folder.Read(name), "mine") << name;
  }
  EXPECT_TRUE(window.folder.Holds("four.bmp"));
  EXPECT_EQ(window.form.lblTitleCaption, " - four.bmp");
}

FaultyFiles& Faults(TestWindow& window) { return static_cast<FaultyFiles&>(*window.files); }

TEST(FileSaveTest, AFileThatAppearsMeanwhileIsKept) {
  CorrectedWindow window(std::make_unique<FaultyFiles>());
  Faults(window).before_write = [&](const std::string&) {
    if (!window.folder.Holds("out.jpg")) window.folder.Write("out.jpg", "theirs");
    return Status::Ok();
  };
  window.form.names.output_path = window.folder.File("out.jpg");
  window.dialogs.save_files = {window.folder.File("second.jpg")};
  EXPECT_TRUE(FileSave(window.form, true).ok());
  EXPECT_EQ(window.dialogs.shown, (std::vector<Shown>{kNameTaken, kSaveDialog}));
  EXPECT_EQ(window.folder.Read("out.jpg"), "theirs");
  EXPECT_EQ(window.Saved(), (Strings{"out.jpg", "second.jpg"}));
  EXPECT_EQ(window.notifications,
            (std::vector<TestWindow::Notification>{{window.folder.File("second.jpg"), 1800}}));
}

// The system's encoder, which does not begin before `begin` lets it, and hears of a stop first.
class LateJpeg : public JpegLibrary {
 public:
  std::atomic<bool> begin = false;

  int ijlInit(JPEG_CORE_PROPERTIES* record) override { return target_->ijlInit(record); }
  int ijlWrite(JPEG_CORE_PROPERTIES* record, int mode) override {
    return target_->ijlWrite(record, mode);
  }
  int ijlFree(JPEG_CORE_PROPERTIES* record) override { return target_->ijlFree(record); }
  std::string EncodePath(const std::string& path) override { return target_->EncodePath(path); }
  bool TakesPictures() const override { return true; }
  Status WritePicture(const std::string& path, const JpegPicture& picture) override {
    while (!begin && picture.go_on(0)) std::this_thread::yield();
    return target_->WritePicture(path, picture);
  }

 private:
  std::unique_ptr<JpegLibrary> target_ = MakeSystemJpegLibrary();
};

TEST(FileSaveTest, ACancelledSaveLeavesNoFileAndCanBeRepeated) {
  auto own_jpeg = std::make_unique<LateJpeg>();
  LateJpeg& jpeg = *own_jpeg;
  CorrectedWindow window(MakeSystemFiles(), std::move(own_jpeg));
  const Picture original = window.surfaces().picOriginal.picture;
  window.form.names.output_path = window.folder.File("imgA.jpg");
  window.events.on_run = [&](int) { window.app.cancel_requested = true; };
  EXPECT_EQ(FileSave(window.form, false).failure, Failure::kCancelled);
  EXPECT_EQ(window.Saved(), std::vector<std::string>());
  EXPECT_EQ(window.surfaces().picOriginal.picture, original);
  EXPECT_TRUE(window.app.photo_changed);
  EXPECT_TRUE(window.dialogs.Told().empty());

  window.events.on_run = nullptr;
  jpeg.begin = true;
  EXPECT_TRUE(FileSave(window.form, false).ok());
  EXPECT_EQ(window.Saved(), std::vector<std::string>{"imgA.jpg"});
}

TEST(FileSaveTest, AFailedWriteNamesThePhotoAndChangesNothing) {
  for (const char* name : {"full.jpg", "full.bmp", "no folder\\out.jpg", "no folder\\out.bmp"}) {
    SCOPED_TRACE(name);
    CorrectedWindow window(std::make_unique<FaultyFiles>());
    Faults(window).Fill();
    const std::string path = window.folder.File(name);
    window.form.names.output_path = "Other (prompt)...";
    window.dialogs.save_files = {path};
    const Status saved = FileSave(window.form, true);
    EXPECT_FALSE(saved.ok());
    EXPECT_TRUE(saved.message.starts_with(window.files->Display(path) + ": ")) << saved.message;
    EXPECT_EQ(window.form.names.output_path, "Other (prompt)...");
    window.ExpectNothingSaved();
    EXPECT_EQ(window.notifications, (std::vector<TestWindow::Notification>{
                                        {"(ERROR) Failed to saved image to: " + path, 1800}}));
  }
}

// An encoder that runs out of memory half-way.
struct LargeJpegLibrary : JpegLibrary {
  TempFolder* folder = nullptr;
  int ijlInit(JPEG_CORE_PROPERTIES*) override { return 0; }
  int ijlWrite(JPEG_CORE_PROPERTIES*, int) override { return 0; }
  int ijlFree(JPEG_CORE_PROPERTIES*) override { return 0; }
  std::string EncodePath(const std::string& path) override { return path; }
  bool TakesPictures() const override { return true; }
  Status WritePicture(const std::string& path, const JpegPicture&) override {
    folder->Write(path.substr(folder->File("").size()), "half a photo");
    throw std::bad_alloc();
  }
};

TEST(FileSaveTest, ASaveWithoutMemoryLeavesNothing) {
  auto library = std::make_unique<LargeJpegLibrary>();
  LargeJpegLibrary& large = *library;
  CorrectedWindow window(MakeSystemFiles(), std::move(library));
  large.folder = &window.folder;
  window.form.names.output_path = window.folder.File("large.jpg");
  const Status saved = FileSave(window.form, false);
  EXPECT_EQ(saved.failure, Failure::kTooLarge);
  EXPECT_TRUE(
      saved.message.starts_with(window.files->Display(window.folder.File("large.jpg")) + ": "))
      << saved.message;
  window.ExpectNothingSaved();
}

// A directory is corrected without previews where memory does not suffice for them.
TEST(FileSaveTest, APhotoIsSavedWithoutItsPreview) {
  const HuePicker first = FirstStartPanel().hue;
  for (const bool of_another : {false, true}) {
    TestWindow window;
    if (of_another) window.Show(Grey(16, 12, 50));
    Display(window.surfaces().picOriginal, Grey(16, 12, 100));
    ShowOriginalAsSource(window.surfaces());
    window.form.names.output_path = window.folder.File("out.bmp");
    const Status saved = FileSave(window.form, false);
    EXPECT_TRUE(saved.ok()) << saved.message;
    EXPECT_TRUE(window.folder.Holds("out.bmp"));
    EXPECT_EQ(window.modules.hue.lblHue, first.lblHue);
  }
}

// Only the thumbnail has been corrected: what is to be saved is a question.
TEST(FileSaveTest, ACorrectedThumbnailAsksWhatIsToBeSaved) {
  const struct {
    const char* name;
    Answer answer;
    bool cancel_run;
    int saved_width;  // 0: nothing is saved
    const char* title;
  } kRows[] = {
      {"the full photo", Answer::kYes, false, 16, " - imgA.bmp"},
      {"the thumbnail; the photo stays the one that is open", Answer::kNo, false, 8, " - img.bmp"},
      {"backed out", Answer::kCancel, false, 0, " - img.bmp"},
      {"the correction of the full photo is cancelled", Answer::kYes, true, 0, " - img.bmp"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    CorrectedWindow window;
    window.Correct(Grey(8, 6, 200));
    window.dialogs.answers = {row.answer};
    if (row.cancel_run) window.events.on_run = [&](int) { window.app.cancel_requested = true; };
    EXPECT_EQ(FileSave(window.form, false).ok(), row.saved_width != 0);
    EXPECT_EQ(window.dialogs.Asked(),
              Strings{"You have not yet applied your changes to the full photo, would you like to "
                      "do that now?\r\rClick Yes to adjust full photo, or No to save the adjusted "
                      "thumbnail"});
    EXPECT_EQ(window.form.lblTitleCaption, row.title);
    EXPECT_EQ(window.surfaces().picOriginal.picture->width(), 16);
    if (row.saved_width == 0) {
      window.ExpectNothingSaved();
    } else {
      const auto saved = window.codec->Load(window.folder.File("imgA.bmp"));
      EXPECT_EQ((*saved)->width(), row.saved_width);
      EXPECT_FALSE(window.app.photo_changed);
    }
  }
}

// Nobody waits for a file that never comes. A cancel of something else has no say.
TEST(FileSaveTest, AThumbnailThatIsNotSavedAfterACancelIsTold) {
  CorrectedWindow window;
  window.Correct(Grey(8, 6, 200));
  window.events.on_run = [&](int) { window.app.cancel_requested = true; };
  EXPECT_EQ(AdjustPhoto(window.form, true).failure, Failure::kCancelled);
  window.events.on_run = nullptr;
  window.dialogs.answers = {Answer::kNo, Answer::kNo};
  EXPECT_EQ(FileSave(window.form, false).failure, Failure::kCancelled);
  window.ExpectNothingSaved();
  EXPECT_EQ(window.dialogs.Told(),
            Strings{"img.bmp was not saved, because its last correction was cancelled. Correct it "
                    "again first."});

  EXPECT_TRUE(AdjustPhoto(window.form, true).ok());
  window.app.cancel_requested = true;
  EXPECT_TRUE(FileSave(window.form, false).ok());
}

}  // namespace
}  // namespace tarnwell
