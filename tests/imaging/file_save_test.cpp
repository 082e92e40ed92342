#include "imaging/file_save.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "imaging/file_open.h"
#include "tests/support/forwarding_files.h"
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

Picture Uniform(int width, int height, std::uint8_t level) {
  auto pixels = TryMakePixels(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (const int channel : {kBlue, kGreen, kRed}) {
        pixels->mutable_view().at(x, y)[channel] = level;
      }
    }
  }
  return pixels;
}

// A window with img.bmp open (16 x 12, level 100) and a correction of it (level 200) unsaved.
struct CorrectedWindow : TestWindow {
  Picture corrected = Uniform(16, 12, 200);

  explicit CorrectedWindow(std::unique_ptr<Files> with_files = MakeSystemFiles())
      : TestWindow(std::move(with_files)) {
    app.open_mode = 2;
    app.opened_path = WriteBitmap("img.bmp", Uniform(16, 12, 100));
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
      {"out.jpg", true},  {"out.Jpg", true},      {"out.JPEG", true},
      {"out.bmp", false}, {"out.png", false},     {"out.gif", false},
      {"out", false},     {"out.jpg.bak", false}, {"Лето.jpeg", true},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    CorrectedWindow window;
    window.form.names.output_path = window.folder.File(row.name);
    const Status saved = FileSave(window.form, true);
    ASSERT_TRUE(saved.ok()) << saved.message;
    EXPECT_EQ(window.Saved(), Strings{row.name});
    EXPECT_EQ(window.folder.Read(row.name).substr(0, 2), row.jpeg ? "\xFF\xD8" : "BM");
    const auto read_back = window.codec->Load(window.folder.File(row.name));
    ASSERT_TRUE(read_back.ok()) << read_back.status.message;
    EXPECT_EQ((*read_back)->width(), 16);
    EXPECT_EQ((*read_back)->height(), 12);
    EXPECT_NEAR((*read_back)->view().at(3, 3)[kGreen], 200, 2);
    // A bitmap is announced as failed although it was written.
    const std::string path = window.folder.File(row.name);
    EXPECT_EQ(window.notifications,
              (std::vector<TestWindow::Notification>{
                  {row.jpeg ? path : "(ERROR) Failed to saved image to: " + path, 1800}}));
  }
}

TEST(FileSaveTest, TheQualityIsThePanels) {
  CorrectedWindow window;
  window.Show(RandomPixels(64, 64));
  std::vector<std::size_t> sizes;
  for (const char* quality : {"0", "50", "100", "500"}) {
    window.modules.sliders[6].text = quality;
    const std::string name = std::string(quality) + ".jpg";
    window.form.names.output_path = window.folder.File(name);
    const Status saved = FileSave(window.form, false);
    ASSERT_TRUE(saved.ok()) << saved.message;
    sizes.push_back(window.folder.Read(name).size());
  }
  EXPECT_LT(sizes[0], sizes[1]);
  EXPECT_LT(sizes[1], sizes[2]);
  EXPECT_EQ(sizes[2], sizes[3]);
}

TEST(FileSaveTest, AQualityThatIsNoNumberSavesNothing) {
  CorrectedWindow window;
  window.modules.sliders[6].text = "best";
  window.form.names.output_path = window.folder.File("out.jpg");
  const Status saved = FileSave(window.form, false);
  EXPECT_NE(saved.message.find("out.jpg: "), std::string::npos) << saved.message;
  window.ExpectNothingSaved();
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

TEST(FileSaveTest, ACancelledDialogWritesNothingAndKeepsThePath) {
  const struct {
    const char* output_path;
    std::optional<std::string> chosen;
  } kRows[] = {{"", std::nullopt}, {"Other (prompt)...", std::nullopt}, {"", ""}};
  for (const auto& row : kRows) {
    CorrectedWindow window;
    window.form.names.output_path = row.output_path;
    window.dialogs.save_files = {row.chosen};
    EXPECT_EQ(FileSave(window.form, true).failure, Failure::kCancelled);
    EXPECT_EQ(window.dialogs.shown, std::vector<Shown>{kSaveDialog});
    EXPECT_EQ(window.form.names.output_path, row.output_path);
    EXPECT_TRUE(window.notifications.empty());
    window.ExpectNothingSaved();
  }
}

TEST(FileSaveTest, ACancelAfterATakenNameEndsTheSave) {
  CorrectedWindow window;
  window.folder.Write("taken.bmp", "mine");
  window.form.names.output_path = window.folder.File("taken.bmp");
  window.dialogs.save_files = {std::nullopt};
  EXPECT_EQ(FileSave(window.form, false).failure, Failure::kCancelled);
  EXPECT_EQ(window.Saved(), Strings{"taken.bmp"});
  EXPECT_EQ(window.folder.Read("taken.bmp"), "mine");
  EXPECT_TRUE(window.app.photo_changed);
}

// Another program takes the name just before the finished file would get it.
class RacedFiles : public ForwardingFiles {
 public:
  RacedFiles() : ForwardingFiles(MakeSystemFiles()) {}
  Status Publish(const std::string& temporary, const std::string& path) override {
    if (!std::exchange(raced_, true)) {
      EXPECT_TRUE(ForwardingFiles::Replace(path, "theirs").ok());
    }
    return ForwardingFiles::Publish(temporary, path);
  }

 private:
  bool raced_ = false;
};

TEST(FileSaveTest, AFileThatAppearsMeanwhileIsKept) {
  CorrectedWindow window(std::make_unique<RacedFiles>());
  window.form.names.output_path = window.folder.File("out.jpg");
  window.dialogs.save_files = {window.folder.File("second.jpg")};
  EXPECT_TRUE(FileSave(window.form, true).ok());
  EXPECT_EQ(window.dialogs.shown, (std::vector<Shown>{kNameTaken, kSaveDialog}));
  EXPECT_EQ(window.folder.Read("out.jpg"), "theirs");
  EXPECT_EQ(window.Saved(), (Strings{"out.jpg", "second.jpg"}));
  EXPECT_EQ(window.notifications,
            (std::vector<TestWindow::Notification>{{window.folder.File("second.jpg"), 1800}}));
}

class FullDisk : public ForwardingFiles {
 public:
  FullDisk() : ForwardingFiles(MakeSystemFiles()) {}
  Status Publish(const std::string& temporary, const std::string&) override {
    EXPECT_TRUE(Delete(temporary).ok());
    return Status::Error(Failure::kDiskFull, Display(temporary) + ": the disk is full");
  }
};

TEST(FileSaveTest, AFailedWriteChangesNothing) {
  for (const char* name : {"out.jpg", "out.bmp"}) {
    for (const bool notify : {true, false}) {
      SCOPED_TRACE(name);
      CorrectedWindow window(std::make_unique<FullDisk>());
      const std::string path = window.folder.File(name);
      window.form.names.output_path = "Other (prompt)...";
      window.dialogs.save_files = {path};
      const Status saved = FileSave(window.form, notify);
      EXPECT_EQ(saved.failure, Failure::kDiskFull);
      EXPECT_EQ(saved.message, window.files->Display(path) + ": the disk is full");
      EXPECT_EQ(window.form.names.output_path, "Other (prompt)...");
      window.ExpectNothingSaved();
      std::vector<TestWindow::Notification> expected;
      if (notify) expected.push_back({"(ERROR) Failed to saved image to: " + path, 1800});
      EXPECT_EQ(window.notifications, expected);
    }
  }
}

TEST(FileSaveTest, AMissingFolderIsAFailureThatNamesThePhoto) {
  for (const char* name : {"gone\\out.jpg", "gone\\out.bmp"}) {
    CorrectedWindow window;
    const std::string path = window.folder.File(name);
    window.form.names.output_path = path;
    const Status saved = FileSave(window.form, false);
    EXPECT_FALSE(saved.ok());
    EXPECT_EQ(saved.message.rfind(window.files->Display(path) + ": ", 0), 0u) << saved.message;
    window.ExpectNothingSaved();
  }
}

TEST(FileSaveTest, ARecordThatCannotBeKeptDoesNotFailTheSave) {
  CorrectedWindow window;
  SetProfile(window.app, "Default", "Gone");
  EXPECT_TRUE(FileSave(window.form, false).ok());
  EXPECT_EQ(window.Saved(), Strings{"imgA.bmp"});
  ASSERT_EQ(window.dialogs.shown.size(), 1u);
  EXPECT_EQ(window.dialogs.shown[0].icon, Icon::kExclamation);
  EXPECT_NE(window.dialogs.shown[0].text.find("Smart Data.tsd"), std::string::npos);
}

TEST(FileSaveTest, WithoutAPhotoThereIsNothingToSave) {
  TestWindow window;
  EXPECT_FALSE(FileSave(window.form, false).ok());
  EXPECT_TRUE(window.dialogs.shown.empty());
}

// Only the thumbnail has been corrected: what is to be saved is a question.
struct PreviewedWindow : CorrectedWindow {
  explicit PreviewedWindow(Answer answer) {
    Correct(Uniform(8, 6, 200));
    dialogs.answers = {answer};
  }
  void ExpectQuestion() {
    EXPECT_EQ(dialogs.shown,
              (std::vector<Shown>{
                  {Kind::kAsk, "Tarnwell Pocket",
                   "You have not yet applied your changes to the full photo, would you like to do "
                   "that now?\r\rClick Yes to adjust full photo, or No to save the adjusted "
                   "thumbnail",
                   Icon::kQuestion}}));
  }
};

TEST(FileSaveThumbnailTest, YesCorrectsAndSavesTheFullPhoto) {
  PreviewedWindow window(Answer::kYes);
  ASSERT_TRUE(FileSave(window.form, false).ok());
  window.ExpectQuestion();
  EXPECT_EQ((*window.codec->Load(window.folder.File("imgA.bmp")))->width(), 16);
  EXPECT_EQ(window.form.lblTitleCaption, " - imgA.bmp");
  EXPECT_EQ(window.surfaces().picOriginal.picture, window.surfaces().picSource.picture);
}

TEST(FileSaveThumbnailTest, NoSavesTheThumbnailAndKeepsTheOriginal) {
  PreviewedWindow window(Answer::kNo);
  ASSERT_TRUE(FileSave(window.form, false).ok());
  window.ExpectQuestion();
  EXPECT_EQ((*window.codec->Load(window.folder.File("imgA.bmp")))->width(), 8);
  EXPECT_EQ(window.surfaces().picOriginal.picture->width(), 16);
  EXPECT_EQ(window.form.lblTitleCaption, " - img.bmp");
  EXPECT_EQ(window.form.caption, "img.bmp - Tarnwell Pocket");
  EXPECT_TRUE(window.form.correction_ready);
  EXPECT_FALSE(window.app.photo_changed);
  EXPECT_EQ(window.form.names.output_path, window.folder.File("imgB.bmp"));
}

TEST(FileSaveThumbnailTest, CancelAndACancelledCorrectionSaveNothing) {
  {
    PreviewedWindow window(Answer::kCancel);
    EXPECT_EQ(FileSave(window.form, true).failure, Failure::kCancelled);
    window.ExpectQuestion();
    window.ExpectNothingSaved();
  }
  {
    PreviewedWindow window(Answer::kYes);
    window.events.on_run = [&](int) { window.app.cancel_requested = true; };
    EXPECT_EQ(FileSave(window.form, true).failure, Failure::kCancelled);
    window.ExpectNothingSaved();
    EXPECT_TRUE(window.notifications.empty());
  }
  {
    PreviewedWindow window(Answer::kNo);
    window.app.cancel_requested = true;
    EXPECT_EQ(FileSave(window.form, true).failure, Failure::kCancelled);
    window.ExpectNothingSaved();
  }
}

}  // namespace
}  // namespace tarnwell
