#include "automation/render_directory.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "automation/adjust_directory.h"
#include "imaging/file_open.h"
#include "shell/menu_click.h"
#include "shell/menus.h"
#include "tests/support/main_desk.h"

namespace tarnwell {
namespace {

using Texts = std::vector<std::string>;

// A folder of two photos, one that is damaged, and the first of them in the window.
struct DirectoryDesk : MainDesk {
  Texts status;
  Texts shown;

  DirectoryDesk() {
    app.current_file = WriteBitmap("a.bmp", NoisyPicture(30, 20, 2));
    WriteBitmap("b.bmp", NoisyPicture(30, 20, 3));
    folder.Write("c.jpg", "no photo");
    EXPECT_TRUE(OpenPhotoFile(form, std::string(app.current_file)).ok());
  }
  void Click() {
    Command1_Click(form, {[this](const std::string& text) { status.push_back(text); },
                          [this] { shown.push_back(form.lblTitleCaption); }});
  }
};

TEST(RenderDirectory, TellsWhatBecameOfThePhotos) {
  DirectoryDesk desk;
  desk.dialogs.answers = {Answer::kNo, Answer::kYes};
  desk.Click();
  EXPECT_FALSE(desk.folder.Holds("TWout"));
  desk.Click();
  EXPECT_EQ(desk.folder.Names("TWout"), (Texts{"a.jpg", "b.jpg"}));
  EXPECT_EQ(desk.status,
            (Texts{"Photo 1 of 3: a.bmp", "Photo 2 of 3: b.bmp", "Photo 3 of 3: c.jpg", ""}));
  EXPECT_EQ(desk.shown, (Texts{" - a.bmp", " - b.bmp"}));
  ASSERT_EQ(desk.dialogs.Told().size(), 1u);
  const std::string told = desk.dialogs.Told()[0];
  EXPECT_TRUE(told.starts_with("2 of 3 photos were corrected and saved in ")) << told;
  EXPECT_NE(told.find("c.jpg: "), std::string::npos) << told;
  EXPECT_EQ(desk.app.current_file, desk.folder.File("a.bmp"));
  EXPECT_TRUE(SamePixels(desk.surfaces().picOriginal.picture, NoisyPicture(30, 20, 2)));
  EXPECT_FALSE(desk.app.photo_changed);
}

TEST(RenderDirectory, TheMenuRowKeepsTheStatusWhilePhotosAreShown) {
  DirectoryDesk desk;
  desk.dialogs.answers = {Answer::kYes};
  MenuClick(desk.window, kToolsMenu, 8);
  Texts status;
  for (const std::string& line : desk.view.log) {
    if (line.starts_with("status ")) status.push_back(line.substr(7));
  }
  // Told, and told again when the corrected photo is shown.
  EXPECT_EQ(status, (Texts{"Photo 1 of 3: a.bmp", "Photo 1 of 3: a.bmp", "Photo 2 of 3: b.bmp",
                           "Photo 2 of 3: b.bmp", "Photo 3 of 3: c.jpg", ""}));
}

TEST(RenderDirectory, ACancelEndsAfterTheColumnInHand) {
  DirectoryDesk desk;
  const auto outcome = AdjustDirectory(desk.form, {[&](int number, int, const std::string&) {
                                         desk.app.cancel_requested = number == 2;
                                       }});
  EXPECT_TRUE(outcome->cancelled);
  EXPECT_EQ(outcome->corrected, 1);
  EXPECT_EQ(desk.folder.Names("TWout"), Texts{"a.jpg"});
}

TEST(RenderDirectory, OneProgressWindowTellsWhichPhotoAndTheTimeLeft) {
  struct CountingView : ProgressView {
    int shown = 0, hidden = 0;
    void ShowWindow() override { ++shown; }
    void HideWindow() override { ++hidden; }
    void DrawBar(float) override {}
    void ShowText(const std::string&) override {}
  };
  DirectoryDesk desk;
  CountingView view;
  Texts folder;
  desk.progress.view = &view;
  desk.dialogs.answers = {Answer::kYes};
  Command1_Click(desk.form, {[&](const std::string&) {
                               folder.push_back(desk.progress.lblFolder);
                               desk.clock.now += 2'000'000'000;
                             },
                             [] {}});
  EXPECT_EQ(folder,
            (Texts{"Photo 1 of 3", "Photo 2 of 3, 0:04 left", "Photo 3 of 3, 0:02 left", ""}));
  EXPECT_EQ(view.shown, 1);
  EXPECT_EQ(view.hidden, 1);
}

TEST(RenderDirectory, ListsNoMoreFailuresThanABoxHolds) {
  DirectoryDesk desk;
  for (int i = 0; i < 14; ++i) desk.folder.Write("d" + std::to_string(i) + ".jpg", "no photo");
  desk.dialogs.answers = {Answer::kYes};
  desk.Click();
  EXPECT_TRUE(desk.dialogs.Told()[0].ends_with("\rand 5 more")) << desk.dialogs.Told()[0];
}

TEST(RenderDirectory, ANumberedNameThatLeadsNowhereIsToldBeforeTheWork) {
  DirectoryDesk desk;
  ASSERT_TRUE(desk.files->CreateFolder(desk.folder.File("my.photos")).ok());
  desk.app.current_file = desk.WriteBitmap("my.photos\\a.bmp", NoisyPicture(30, 20, 2));
  int shown = 0;
  const DirectoryFollower follower = {.shown = [&] { ++shown; }};
  EXPECT_EQ(AdjustDirectory(desk.form, follower)->corrected, 1);
  const auto again = AdjustDirectory(desk.form, follower);
  EXPECT_EQ(shown, 1);
  ASSERT_EQ(again->failures.size(), 1u);
  EXPECT_NE(again->failures[0].find("a.jpg: is there already"), std::string::npos);
}

TEST(RenderDirectory, TheWindowIsLeftAsItWas) {
  DirectoryDesk desk;
  desk.WriteBitmap("z.bmp", NoisyPicture(20, 30, 4));
  desk.form.learnt = {.similar = 3};
  const auto swatches = desk.modules.hue.lblHue;
  const auto container = desk.surfaces().picTContainer.picture;
  ASSERT_TRUE(AdjustDirectory(desk.form, {}).ok());
  EXPECT_EQ(desk.form.learnt.similar, 3);
  EXPECT_EQ(desk.modules.hue.lblHue, swatches);
  // A preview of the shape of the last photo draws its shadow anew.
  Display(desk.surfaces().picSource, NoisyPicture(20, 30, 4));
  MakeThumbnail(desk.form.buffer, desk.events);
  EXPECT_NE(desk.surfaces().picTContainer.picture, container);
}

}  // namespace
}  // namespace tarnwell
