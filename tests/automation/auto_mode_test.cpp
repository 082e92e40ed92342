#include "automation/auto_mode.h"

#include <gtest/gtest.h>

#include "tests/support/faulty_files.h"
#include "tests/support/pictures.h"
#include "tests/support/test_window.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

using Lines = std::vector<std::string>;

// A window that runs the mode over "in", "out" and "done" of its folder.
struct AutoModeTest : testing::Test, AutoModeHost, Tray {
  TestWindow window{std::make_unique<FaultyFiles>()};
  TempFolder& folder = window.folder;
  SysTray tray{*this};
  AutoMode mode;
  Lines statuses, reports, tray_log;
  std::string full;            // nothing can be written below this path
  bool out_of_memory = false;  // what is no photo cannot be written at all

  AutoModeTest() {
    window.app.open_mode = 2;
    for (int i = 0; i < 3; ++i) {
      mode.folders[i] = folder.MakeFolder(std::array{"in", "out", "done"}[i]) + "\\";
    }
    StartAutoMode(mode);
    static_cast<FaultyFiles&>(*window.files).before_write = [this](const std::string& path) {
      if (full.empty() || !path.starts_with(full)) return Status::Ok();
      if (out_of_memory && !path.ends_with(".jpg")) throw std::bad_alloc();
      return Status::Error(Failure::kDiskFull, window.files->Display(path) + ": disk full");
    };
  }

  std::function<void(const std::string& text)> on_status = [](auto&) {};

  void ShowStatus(const std::string& text, AutoActivity) override {
    statuses.push_back(text);
    on_status(text);
  }
  void Report(const std::string& line) override { reports.push_back(line); }
  void PhotoDone(const std::string&, const std::string&) override {}
  void RefreshMainWindow() override { tray_log.push_back("refresh"); }
  void CorrectPhotos(AutoPass& pass) override {
    if (full == folder.File("all")) throw std::bad_alloc();
    for (std::size_t i = 0; i < pass.size() && pass.Begin(i); ++i) pass.Correct(i, window.form);
  }
  void SetIcon(TrayPicture picture) override {
    tray_log.push_back(picture == TrayPicture::kBusy ? "busy" : "idle");
  }
  void SetTip(const std::string& tip) override { tray_log.push_back(tip); }
  void Remove() override {}

  void Tick(int seconds = 1) {
    window.clock.now += std::int64_t{seconds} * 1'000'000'000;
    AutoModeTick(mode, window.platform, tray, *this);
  }
  void Arrive(const std::string& name) { folder.Write("in\\" + name, kBaselineJpeg); }
  // Lets a first look pass, then takes what is there.
  void Take() {
    Tick();
    Tick();
  }
};

TEST_F(AutoModeTest, TellsEveryStepAndChangesNothingWhileNothingArrives) {
  Take();
  Arrive("a.jpg");
  Take();
  Take();
  const std::string waiting = "Waiting...\r\n\r\nWatching for images in:\r\n" +
                              window.platform.files.Display(folder.File("in\\"));
  EXPECT_EQ(statuses, (Lines{waiting, "Loading Image...", "a.jpg\r\nCorrecting Image...",
                             "a.jpg\r\nSaving Image and Moving Source...", waiting}));
  EXPECT_EQ(tray_log, (Lines{"idle", "Automated Mode Running (Idle)", "busy",
                             "Automated Mode Running\r\nProcessing Images...", "idle",
                             "Automated Mode Running (Idle)", "refresh"}));
  EXPECT_EQ(folder.Names("in"), Lines{});
  EXPECT_EQ(folder.Names("out"), Lines{"a.jpg"});
  EXPECT_EQ(folder.Read("done\\a.jpg"), kBaselineJpeg);
  EXPECT_FALSE(folder.Holds("program\\Cameras\\Default\\Default\\Smart Data.tsd"));
  EXPECT_EQ(window.dialogs.shown.size() + reports.size(), 0u);
}

TEST_F(AutoModeTest, NamesThatAreTakenAreNumberedInBothFolders) {
  for (int arrival = 0; arrival < 2; ++arrival) {
    for (const char* name : {"a b.jpg", "x.y.jpg", "\xD0\xBF.JPEG", "notes.txt"}) Arrive(name);
    Take();
  }
  const Lines expected = {"a b.jpg",     "a b~1.jpg",     "x.y.jpg",
                          "x.y~1.y.jpg", "\xD0\xBF.JPEG", "\xD0\xBF~1.JPEG"};
  EXPECT_EQ(folder.Names("out"), expected);
  EXPECT_EQ(folder.Names("done"), expected);
  EXPECT_EQ(folder.Names("in"), Lines{"notes.txt"});
}

TEST_F(AutoModeTest, APhotoThatGrowsWaits) {
  const std::string whole = kBaselineJpeg;
  for (const std::size_t length : {100u, 200u, 300u}) {
    folder.Write("in\\a.jpg", whole.substr(0, length));
    Tick();
  }
  Arrive("a.jpg");
  Tick();
  EXPECT_EQ(folder.Names("in"), Lines{"a.jpg"});
  Tick();
  EXPECT_EQ(folder.Names("out"), Lines{"a.jpg"});
  EXPECT_EQ(reports, Lines{});
}

TEST_F(AutoModeTest, APhotoThatCannotBeReadIsNamedOnceUntilItChangesOrTheModeStarts) {
  folder.Write("in\\bad.jpg", "no photo");
  Arrive("good.jpg");
  Take();
  Take();
  EXPECT_EQ(reports.size(), 1u);
  EXPECT_EQ(folder.Names("in"), Lines{"bad.jpg"});
  EXPECT_EQ(folder.Names("done"), Lines{"good.jpg"});
  folder.Write("in\\bad.jpg", "no photo either");
  Take();
  EXPECT_EQ(reports.size(), 2u);
  StartAutoMode(mode);
  Take();
  EXPECT_EQ(reports.size(), 3u);
  Arrive("bad.jpg");
  Take();
  EXPECT_EQ(folder.Names("done"), (Lines{"bad.jpg", "good.jpg"}));
}

TEST_F(AutoModeTest, AFullDiskKeepsTheSourcesAndIsTriedAgainLater) {
  for (const std::string trouble : {"out", "done", "out without memory", "all without memory"}) {
    SCOPED_TRACE(trouble);
    reports.clear();
    full = folder.File(trouble.substr(0, trouble.find(' ')));
    out_of_memory = trouble.ends_with("memory");
    Arrive(trouble + "1.jpg");
    Arrive(trouble + "2.jpg");
    Take();
    EXPECT_EQ(reports.size(), 1u);
    EXPECT_EQ(mode.window.lblStatus, reports.front());
    EXPECT_EQ(folder.Names("in").size(), 2u);
    Tick(31);
    EXPECT_EQ(reports.size(), 1u);
    full.clear();
    Tick();
    EXPECT_EQ(folder.Names("in").size(), 2u) << "tried again too soon";
    Tick(31);
    EXPECT_EQ(folder.Names("in"), Lines{});
    EXPECT_TRUE(mode.window.lblStatus.starts_with("Waiting...")) << mode.window.lblStatus;
  }
  // What was saved before its source could be moved is not saved once more.
  EXPECT_EQ(folder.Names("out"),
            (Lines{"all without memory1.jpg", "all without memory2.jpg", "done1.jpg", "done2.jpg",
                   "out without memory1.jpg", "out without memory2.jpg", "out1.jpg", "out2.jpg"}));
}

TEST_F(AutoModeTest, AMissingFolderIsNamedAndWaitedFor) {
  Arrive("a.jpg");
  std::filesystem::remove(folder.SystemPath("done"));
  Take();
  Take();
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_NE(reports[0].find("done"), std::string::npos);
  EXPECT_EQ(folder.Names("out"), Lines{});
  folder.MakeFolder("done");
  Take();
  EXPECT_EQ(folder.Names("done"), Lines{"a.jpg"});
}

// As when a share loses its connection for a moment, at whatever step.
TEST_F(AutoModeTest, AnInputFolderThatIsLostAndComesBackCostsNoPhotoAndDoublesNone) {
  const auto in = folder.SystemPath("in"), away = folder.SystemPath("away");
  for (const std::string step : {"Loading", "Correcting", "Saving"}) {
    SCOPED_TRACE(step);
    reports.clear();
    on_status = [&](const std::string& text) {
      if (text.find(step + " Image") != text.npos && exists(in)) rename(in, away);
    };
    Arrive(step + "1.jpg");
    Arrive(step + "2.jpg");
    Take();
    on_status = [](auto&) {};
    Take();
    EXPECT_EQ(reports, Lines{window.files->Display(folder.File("in\\")) + ": no such folder"});
    std::filesystem::rename(away, in);
    Tick(31);
    Tick();
    EXPECT_EQ(folder.Names("in"), Lines{});
  }
  const Lines expected = {"Correcting1.jpg", "Correcting2.jpg", "Loading1.jpg",
                          "Loading2.jpg",    "Saving1.jpg",     "Saving2.jpg"};
  EXPECT_EQ(folder.Names("done"), expected);
  EXPECT_EQ(folder.Names("out"), expected);
}

// Whatever was corrected, the processed folder holds only photos with a corrected copy.
TEST_F(AutoModeTest, APhotoExchangedDuringItsCorrectionIsTakenUpAgain) {
  auto& files = static_cast<FaultyFiles&>(*window.files);
  files.before_write = [&](const std::string& path) {
    if (path.find("out") != path.npos && folder.Read("in\\a.jpg") == kBaselineJpeg) {
      folder.Write("in\\a.jpg", kProgressiveJpeg);
    }
    return Status::Ok();
  };
  Arrive("a.jpg");
  Take();
  EXPECT_EQ(folder.Names("in"), Lines{"a.jpg"});
  EXPECT_EQ(folder.Names("done"), Lines{});
  EXPECT_EQ(reports, Lines{"a.jpg: was changed while it was corrected; it is taken up again"});
  EXPECT_EQ(mode.waiting, 1) << "for a second look before a single pass ends";
  Take();
  EXPECT_EQ(folder.Names("out"), (Lines{"a.jpg", "a~1.jpg"}));
  EXPECT_EQ(folder.Read("done\\a.jpg"), kProgressiveJpeg);
}

TEST_F(AutoModeTest, ThePhotoOfACopyThatWasTakenAwayIsNamed) {
  Arrive("a.jpg");
  on_status = [&](const std::string& text) {
    if (text.find("Saving") != text.npos) std::filesystem::remove(folder.SystemPath("in\\a.jpg"));
  };
  Take();
  EXPECT_EQ(folder.Names("out"), Lines{"a.jpg"});
  EXPECT_EQ(reports, Lines{"a.jpg: was taken away while it was corrected; its copy is " +
                           window.files->Display(folder.File("out\\a.jpg"))});
}

// Its copy was saved in a pass that could not move it.
TEST_F(AutoModeTest, APhotoExchangedBeforeItsMoveIsTakenUpAgain) {
  full = folder.File("done");
  Arrive("z.jpg");
  Take();
  EXPECT_EQ(folder.Names("out"), Lines{"z.jpg"});
  Arrive("a.jpg");
  Tick(31);  // sees it
  full.clear();
  reports.clear();
  on_status = [&](const std::string& text) {
    if (text.starts_with("a.jpg\r\nSaving")) folder.Write("in\\z.jpg", kProgressiveJpeg);
  };
  Tick(31);
  EXPECT_EQ(folder.Names("done"), Lines{"a.jpg"});
  EXPECT_EQ(reports, Lines{"z.jpg: was changed while it was corrected; it is taken up again"});
  on_status = [](auto&) {};
  Take();
  EXPECT_TRUE(folder.Read("done\\z.jpg") == kProgressiveJpeg);
  EXPECT_EQ(folder.Names("out"), (Lines{"a.jpg", "z.jpg", "z~1.jpg"}));
}

// As when a folder loses its rights, or a share tells from memory what it holds.
TEST_F(AutoModeTest, APhotoThatCannotBeLookedAtForAWhileIsNotCorrectedTwice) {
  auto& files = static_cast<FaultyFiles&>(*window.files);
  Arrive("a.jpg");
  on_status = [&](const std::string& text) {
    if (text.find("Saving") != text.npos) files.unknown = folder.File("in\\a.jpg");
  };
  Take();
  on_status = [](auto&) {};
  Tick(31);
  EXPECT_EQ(folder.Names("in"), Lines{"a.jpg"});
  files.unknown.clear();
  Tick(31);
  Tick();
  EXPECT_EQ(folder.Names("done"), Lines{"a.jpg"});
  EXPECT_EQ(folder.Names("out"), Lines{"a.jpg"});
}

TEST_F(AutoModeTest, TheInputFolderInAnotherSpellingIsNoOutputFolder) {
  Arrive("a.jpg");
  for (const AutoFolder target : {kOutputFolder, kProcessedFolder}) {
    const std::string before = mode.folders[target];
    mode.folders[target] = folder.File("done\\..\\in\\.\\");
    Take();
    ASSERT_EQ(reports.size(), 1u);
    EXPECT_NE(reports[0].find("cannot be the output or processed folder"), std::string::npos);
    EXPECT_EQ(folder.Names("in"), Lines{"a.jpg"});
    reports.clear();
    mode.hold_reason.clear();
    mode.folders[target] = before;
  }
}

TEST_F(AutoModeTest, ATickDuringAPassAndTheEndOfTheModeAreHeardBetweenPhotos) {
  Arrive("a.jpg");
  Arrive("b.jpg");
  window.events.on_run = [&](int) {
    AutoModeTick(mode, window.platform, tray, *this);
    if (!statuses.empty() && statuses.back().starts_with("a.jpg")) mode.automated = false;
  };
  Take();
  EXPECT_EQ(folder.Names("done"), Lines{"a.jpg"});
  EXPECT_EQ(folder.Names("out"), Lines{"a.jpg"});
}

}  // namespace
}  // namespace tarnwell
