#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "engine/adjust_photo.h"
#include "shell/clipboard_commands.h"
#include "shell/restore_original.h"
#include "shell/save_as.h"
#include "shell/zoom_request.h"
#include "tests/support/main_desk.h"

namespace tarnwell {
namespace {

using Texts = std::vector<std::string>;

TEST(SaveAs, AsksForANameAlthoughOneIsProposed) {
  MainDesk desk;
  desk.Show(NoisyPicture(20, 10, 1));
  desk.form.names.output_path = desk.folder.File("proposed.jpg");
  desk.dialogs.save_files = {desk.folder.File("chosen.bmp")};
  EXPECT_TRUE(SaveAs(desk.form).ok());
  EXPECT_TRUE(desk.folder.Holds("chosen.bmp"));
  EXPECT_FALSE(desk.folder.Holds("proposed.jpg"));
}

TEST(SaveAs, PutsTheProposalBackWhenNothingWasSaved) {
  struct Case {
    const char* name;
    std::vector<std::optional<std::string>> dialogs;
    int told;
  };
  const Case cases[] = {
      {"backed out", {std::nullopt}, 0},
      {"a taken name, then backed out", {"taken.jpg", std::nullopt}, 1},
      {"a folder that is not there", {"missing\\a.bmp"}, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    MainDesk desk;
    desk.folder.Write("taken.jpg", "mine");
    desk.Show(NoisyPicture(20, 10, 1));
    const std::string proposed = desk.form.names.output_path = desk.folder.File("proposed.jpg");
    for (const auto& chosen : c.dialogs) {
      desk.dialogs.save_files.push_back(chosen ? std::optional(desk.folder.File(*chosen))
                                               : std::nullopt);
    }
    EXPECT_FALSE(SaveAs(desk.form).ok());
    EXPECT_EQ(desk.form.names.output_path, proposed);
    EXPECT_EQ(static_cast<int>(desk.dialogs.Told().size()), c.told);
    EXPECT_EQ(desk.folder.Read("taken.jpg"), "mine");
  }
}

TEST(RestoreOriginalImage, LeavesNothingUnsavedAndNothingToLearn) {
  MainDesk desk;
  const Picture photo = desk.ShowLargePhoto();
  const Picture preview = desk.surfaces().picThumb.picture;
  ASSERT_TRUE(AdjustPhoto(desk.form, /*preview=*/true).ok());
  ASSERT_FALSE(desk.app.learning_record.empty());
  RestoreOriginalImage(desk.form);
  EXPECT_TRUE(SamePixels(desk.surfaces().picSource.picture, photo));
  EXPECT_TRUE(SamePixels(desk.surfaces().picThumb.picture, preview));
  EXPECT_FALSE(desk.app.photo_changed);
  EXPECT_EQ(desk.app.learning_record, "");

  MainDesk empty;
  RestoreOriginalImage(empty.form);
  EXPECT_EQ(empty.surfaces().picSource.picture, nullptr);
}

TEST(Clipboard, CopiesTheCorrectedPictures) {
  MainDesk desk;
  desk.ShowLargePhoto();
  ASSERT_TRUE(AdjustPhoto(desk.form, /*preview=*/false).ok());
  CopySource(desk.form);
  EXPECT_TRUE(SamePixels(desk.clipboard.content, desk.surfaces().picSource.picture));
  CopyThumb(desk.form);
  EXPECT_TRUE(SamePixels(desk.clipboard.content, desk.surfaces().picThumb.picture));
  EXPECT_EQ(desk.dialogs.shown.size(), 0u);

  desk.clipboard.refuses = true;
  CopySource(desk.form);
  EXPECT_EQ(desk.dialogs.Told().size(), 1u);
}

TEST(Clipboard, APastedPictureIsANewPhotoWithoutAName) {
  MainDesk desk;
  desk.ShowLargePhoto("C:\\P\\old.jpg");
  desk.app.opened_path = "C:\\P\\old.jpg";
  desk.clipboard.content = NoisyPicture(30, 20, 5);
  PasteSource(desk.form);
  EXPECT_TRUE(SamePixels(desk.surfaces().picOriginal.picture, desk.clipboard.content));
  EXPECT_TRUE(SamePixels(desk.surfaces().picSource.picture, desk.clipboard.content));
  EXPECT_EQ(desk.app.current_file, "");
  EXPECT_EQ(desk.app.opened_path, "");
  EXPECT_EQ(desk.form.caption, "Tarnwell Pocket - Unnamed Photo");
  EXPECT_EQ(desk.form.names.output_path, "");
  EXPECT_FALSE(desk.app.photo_changed);

  desk.app.auto_preview = true;
  PasteSource(desk.form);
  EXPECT_TRUE(desk.app.photo_changed);
}

TEST(Clipboard, PastingAsksAboutUnsavedChangesFirst) {
  MainDesk desk;
  const Picture photo = desk.ShowLargePhoto();
  desk.app.photo_changed = true;
  PasteSource(desk.form);  // nothing to paste: no question
  EXPECT_EQ(desk.dialogs.Asked(), Texts{});
  EXPECT_EQ(desk.dialogs.Told().size(), 1u);

  desk.clipboard.content = NoisyPicture(30, 20, 5);
  desk.dialogs.answers = {Answer::kCancel, Answer::kNo};
  PasteSource(desk.form);
  EXPECT_TRUE(SamePixels(desk.surfaces().picOriginal.picture, photo));
  EXPECT_TRUE(desk.app.photo_changed);
  PasteSource(desk.form);
  EXPECT_EQ(desk.surfaces().picOriginal.picture->width(), 30);
  EXPECT_EQ(desk.dialogs.Asked()[0],
            "Do you want to save the changes you made to the current image?");
}

TEST(RequestZoom, CorrectsTheFullPhotoFirstWhenOnlyThePreviewWas) {
  struct Case {
    const char* name;
    bool preview_first;
    std::vector<Answer> answers;
    bool cancel_run;
    std::size_t zooms;
    int width;  // of the working image afterwards
  };
  const Case cases[] = {
      {"uncorrected", false, {}, false, 1, 400},
      {"yes", true, {Answer::kYes}, false, 1, 400},
      {"no", true, {Answer::kNo}, false, 0, 320},
      {"cancel", true, {Answer::kCancel}, false, 0, 320},
      {"yes, but the run is cancelled", true, {Answer::kYes}, true, 0, 320},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    MainDesk desk;
    desk.Connect();
    desk.ShowLargePhoto();
    if (c.preview_first) {
      ASSERT_TRUE(AdjustPhoto(desk.form, /*preview=*/true).ok());
    }
    desk.dialogs.answers.assign(c.answers.begin(), c.answers.end());
    if (c.cancel_run) desk.events.on_run = [&](int) { desk.app.cancel_requested = true; };
    RequestZoom(desk.form);
    EXPECT_EQ(desk.zooms.size(), c.zooms);
    EXPECT_EQ(desk.surfaces().picSource.picture->width(), c.width);
    EXPECT_EQ(desk.dialogs.Asked().size(), c.answers.size());
    EXPECT_EQ(desk.dialogs.Told(), Texts{});
  }
}

}  // namespace
}  // namespace tarnwell
