#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "engine/adjust_photo.h"
#include "shell/clipboard_commands.h"
#include "shell/preview_follow.h"
#include "shell/restore_original.h"
#include "shell/save_as.h"
#include "shell/status_text.h"
#include "shell/zoom_request.h"
#include "tests/support/main_desk.h"

namespace tarnwell {
namespace {

using Texts = std::vector<std::string>;

TEST(SaveAs, AsksForANameAndPutsTheProposalBackWhenNothingWasSaved) {
  using Choices = std::vector<std::optional<std::string>>;
  const struct {
    Choices choices;
    int told;
    bool saved;
  } cases[] = {
      {{std::nullopt}, 0, false},
      {{"taken.jpg", std::nullopt}, 1, false},
      {{"missing\\a.bmp"}, 0, false},
      {{"taken.jpg", "chosen.bmp"}, 1, true},
  };
  for (const auto& c : cases) {
    MainDesk desk;
    desk.folder.Write("taken.jpg", "mine");
    desk.Show(NoisyPicture(20, 10, 1));
    const std::string proposed = desk.form.names.output_path = desk.folder.File("proposed.jpg");
    for (const auto& choice : c.choices) {
      desk.dialogs.save_files.push_back(choice ? std::optional(desk.folder.File(*choice))
                                               : std::nullopt);
    }
    EXPECT_EQ(SaveAs(desk.form).ok(), c.saved);
    EXPECT_EQ(desk.form.names.output_path, proposed);
    EXPECT_EQ(static_cast<int>(desk.dialogs.Told().size()), c.told);
    EXPECT_EQ(desk.folder.Read("taken.jpg"), "mine");
    EXPECT_EQ(desk.folder.Holds("chosen.bmp"), c.saved);
    EXPECT_FALSE(desk.folder.Holds("proposed.jpg"));
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
}

TEST(Clipboard, APastedPictureIsANewPhotoWithoutAName) {
  MainDesk desk;
  desk.ShowLargePhoto("C:\\P\\old.jpg");
  desk.app.opened_path = "C:\\P\\old.jpg";
  desk.clipboard.content = NoisyPicture(30, 20, 5);
  PasteSource(desk.form);
  EXPECT_TRUE(SamePixels(desk.surfaces().picOriginal.picture, desk.clipboard.content));
  EXPECT_EQ(desk.app.current_file + desk.app.opened_path, "");
  EXPECT_EQ(desk.form.caption, "Tarnwell Pocket - Unnamed Photo");
  EXPECT_EQ(desk.form.names.output_path, "");
  EXPECT_FALSE(desk.app.photo_changed);

  desk.app.auto_preview = true;
  PasteSource(desk.form);
  EXPECT_TRUE(desk.app.photo_changed);
}

TEST(RequestZoom, CorrectsTheFullPhotoFirstWhenOnlyThePreviewWas) {
  struct Case {
    std::vector<Answer> answers;  // none: nothing was corrected before
    bool cancel_run;
    std::size_t zooms;
    int width;  // of the working image afterwards
  };
  const Case cases[] = {{{}, false, 1, 400},
                        {{Answer::kYes}, false, 1, 400},
                        {{Answer::kNo}, false, 0, 320},
                        {{Answer::kYes}, true, 0, 320}};
  for (const Case& c : cases) {
    MainDesk desk;
    desk.Connect();
    desk.ShowLargePhoto();
    if (!c.answers.empty()) {
      ASSERT_TRUE(AdjustPhoto(desk.form, true).ok());
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

TEST(StatusText, TellsWhatIsCorrectedAndWhetherWithTheSettingsOfNow) {
  MainDesk desk;
  desk.ShowLargePhoto();
  desk.modules.open = {};
  desk.modules.open[kAdjustBrightness] = 1;
  const std::string size = "400 \xC3\x97 300 pixels", dot = "  \xE2\x80\xA2  ";
  EXPECT_EQ(StatusText(desk.form), size);
  ASSERT_TRUE(AdjustPhoto(desk.form, /*preview=*/true).ok());
  EXPECT_EQ(StatusText(desk.form), size + dot + "preview corrected, not saved");
  ASSERT_TRUE(AdjustPhoto(desk.form, /*preview=*/false).ok());
  EXPECT_EQ(StatusText(desk.form), size + dot + "corrected, not saved");
  const std::function<void()> changes[] = {
      [&] { SetSliderValue(desk.modules, 3, 25); },
      [&] { desk.modules.open[kSmartWhiteBalance] = 1; },
      [&] { desk.app.analyze_full_source = true; },
  };
  for (const auto& change : changes) {
    const frmModules panel = desk.modules;
    change();
    EXPECT_EQ(StatusText(desk.form),
              size + dot + "corrected with other settings than these, not saved");
    desk.modules = panel;
    desk.app.analyze_full_source = false;
    EXPECT_EQ(StatusText(desk.form), size + dot + "corrected, not saved");
  }
}

// A slider that is moved shows at once what it does, but never throws a full correction away.
TEST(PreviewFollowsPanel, OnlyWhileACorrectedPreviewIsShown) {
  MainDesk desk;
  EXPECT_FALSE(PreviewFollowsPanel(desk.form)) << "no photo";
  desk.ShowLargePhoto();
  EXPECT_FALSE(PreviewFollowsPanel(desk.form)) << "nothing corrected";
  ASSERT_TRUE(AdjustPhoto(desk.form, /*preview=*/true).ok());
  EXPECT_TRUE(PreviewFollowsPanel(desk.form));
  ASSERT_TRUE(AdjustPhoto(desk.form, /*preview=*/false).ok());
  EXPECT_FALSE(PreviewFollowsPanel(desk.form)) << "the full photo is corrected";
  ASSERT_TRUE(AdjustPhoto(desk.form, /*preview=*/true).ok());
  RestoreOriginalImage(desk.form);
  EXPECT_FALSE(PreviewFollowsPanel(desk.form)) << "restored";
}

}  // namespace
}  // namespace tarnwell
