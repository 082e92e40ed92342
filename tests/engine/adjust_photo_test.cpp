#include "engine/adjust_photo.h"

#include <gtest/gtest.h>
#include <map>

#include "tests/support/pictures.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

void SetModules(TestWindow& window, std::initializer_list<int> open) {
  window.modules.open = {};
  for (const int module : open) window.modules.open[module] = 1;
}

PixelArray Result(const TestWindow& window) { return *window.form.buffer.surfaces.picSource.image; }

// --- Cancel -------------------------------------------------------------------------------------

bool operator==(const PictureSurface& a, const PictureSurface& b) {
  return a.image == b.image && a.picture == b.picture && a.visible == b.visible &&
         a.left == b.left && a.top == b.top && a.width == b.width && a.height == b.height;
}

void ExpectUntouched(const PhotoSurfaces& before, const PhotoSurfaces& after) {
  EXPECT_TRUE(before.picOriginal == after.picOriginal);
  EXPECT_TRUE(before.picSource == after.picSource);
  EXPECT_TRUE(before.picThumb == after.picThumb);
  EXPECT_TRUE(before.picTContainer == after.picTContainer);
}

TEST(AdjustPhotoTest, ARunWithoutMemoryLeavesNothingBehind) {
  TestWindow window;
  window.Show(NoisyPicture(40, 30, 1));
  ASSERT_TRUE(AnalyzeOpenedPhoto(window.form).ok());
  const int begun = window.events.runs;
  ASSERT_TRUE(AdjustPhoto(window.form, false).ok());
  const int last = 2 * window.events.runs - begun;
  const PhotoSurfaces before = window.surfaces();
  window.events.on_run = [&](int run) {
    if (run == last) throw std::bad_alloc();
  };
  EXPECT_EQ(AdjustPhoto(window.form, false).failure, Failure::kTooLarge);
  ExpectUntouched(before, window.surfaces());
  window.events.on_run = nullptr;
  EXPECT_TRUE(AdjustPhoto(window.form, false).ok());
}

// Cancel is pressed at every time in turn at which events are let in.
TEST(AdjustPhotoTest, CancelledRunLeavesNothingBehind) {
  constexpr int kWidth = 16;
  const struct {
    std::initializer_list<int> modules;
    int least;  // times that events are let in on a full run: columns of passes, bands, pieces
  } kRuns[] = {
      {{kSmartPhotoCorrection, kNoiseReduction, kRotation, kColorRotation}, 3 * kWidth + 12},
      {{kNoiseReduction, kAdjustFocus, kRotation}, kWidth + 15},
  };
  for (const auto& run : kRuns) {
    for (const bool preview : {false, true}) {
      for (const int threads : {1, 3}) {
        SCOPED_TRACE(testing::Message() << run.least << (preview ? ", preview, " : ", full, ")
                                        << threads << " threads");
        TestWindow window;
        window.form.threads = threads;
        SetModules(window, run.modules);
        window.modules.sliders[12].text = "77";
        window.Show(NoisyPicture(kWidth, 160, 1));
        ASSERT_TRUE(AnalyzeOpenedPhoto(window.form).ok());
        window.app.learning_record = "of the last run";
        const PhotoSurfaces before = window.surfaces();

        // The last two times all is done: before the result is shown, and after.
        for (int cancel_at = 1;; ++cancel_at) {
          const int first = window.events.runs;
          window.events.on_run = [&](int at) {
            if (at == first + cancel_at) {
              CancelClicked(window.progress, window.app.cancel_requested, window.events);
            }
          };
          const Status status = AdjustPhoto(window.form, preview);
          window.events.on_run = nullptr;
          if (status.ok()) {
            EXPECT_GE(cancel_at, run.least);
            EXPECT_LE(window.events.runs - first, cancel_at + 1 + 2);
            break;
          }
          ASSERT_EQ(status.failure, Failure::kCancelled);
          ExpectUntouched(before, window.surfaces());
          ASSERT_FALSE(window.app.photo_changed);
          ASSERT_EQ(window.app.learning_record, "of the last run");
        }
        TestWindow undisturbed;
        undisturbed.modules = window.modules;
        undisturbed.Show(NoisyPicture(kWidth, 160, 1));
        ASSERT_TRUE(AdjustPhoto(undisturbed.form, preview).ok());
        EXPECT_EQ(Result(window), Result(undisturbed));
      }
    }
  }
}

// --- White balance that is missing ---------------------------------------------------------------

TEST(AdjustPhotoTest, TellsOfAMissingWhiteAtEveryCommandAndOnceWhileThePreviewFollows) {
  TestWindow window;
  SetModules(window, {kSmartWhiteBalance});
  window.Show(NoisyPicture(16, 12, 1));
  window.modules.white_balance_mode = WhiteBalanceMode::kModeDefault;
  ASSERT_TRUE(CorrectPreviewAnew(window.form).ok());
  EXPECT_EQ(window.dialogs.shown.size(), 1u);
  ASSERT_TRUE(CorrectPreviewAnew(window.form).ok());
  EXPECT_EQ(window.dialogs.shown.size(), 1u) << "at every step of a slider";
  ASSERT_TRUE(AdjustPhoto(window.form, /*preview=*/true).ok());
  EXPECT_EQ(window.dialogs.shown.size(), 2u) << "the user asked";

  window.modules.white_balance_mode = WhiteBalanceMode::kCustomFile;
  window.modules.custom_white_file = window.folder.File("gone.wbs");
  ASSERT_TRUE(CorrectPreviewAnew(window.form).ok());
  EXPECT_EQ(window.dialogs.shown.size(), 3u) << "another problem";

  window.modules.white_balance_mode = WhiteBalanceMode::kPickedPixel;
  ASSERT_TRUE(CorrectPreviewAnew(window.form).ok());
  window.modules.white_balance_mode = WhiteBalanceMode::kCustomFile;
  ASSERT_TRUE(CorrectPreviewAnew(window.form).ok());
  EXPECT_EQ(window.dialogs.shown.size(), 4u) << "chosen once more";
}

// --- Progress -----------------------------------------------------------------------------------

// Writes down what the progress window is told, as lines.
class RecordingView : public ProgressView {
 public:
  std::vector<std::string> lines;
  std::map<std::string, std::vector<float>> bars;  // by the text that was shown

  void ShowWindow() override { lines.push_back("show"); }
  void HideWindow() override { lines.push_back("hide"); }
  void ShowText(const std::string& lblJob) override {
    lines.push_back(lblJob);
    text_ = lblJob;
  }
  void DrawBar(float percentage) override { bars[text_].push_back(percentage); }

 private:
  std::string text_;
};

// The percentages that were drawn above 0 during `stage`, each pass starting at 0.
std::vector<float> Drawn(const RecordingView& view, const std::string& stage) {
  std::vector<float> drawn;
  if (!view.bars.contains(stage)) return drawn;
  for (const float percentage : view.bars.at(stage)) {
    if (percentage > 0) drawn.push_back(percentage);
  }
  return drawn;
}

TEST(AdjustPhotoTest, CancelledRunInTheMemoryOfThePhotoLeavesNoHalfPhoto) {
  TestWindow window;
  window.form.keeps_original = false;
  SetModules(window, {kAdjustBrightness});
  window.modules.sliders[3].text = "50";
  window.Show(NoisyPicture(40, 30, 1));
  window.events.on_run = [&](int run) { window.app.cancel_requested = run > 10; };
  EXPECT_EQ(AdjustPhoto(window.form, /*preview=*/false).failure, Failure::kCancelled);
  EXPECT_EQ(window.surfaces().picOriginal.image, nullptr);
  EXPECT_EQ(window.surfaces().picSource.image, nullptr);
  EXPECT_EQ(AdjustPhoto(window.form, /*preview=*/false).failure, Failure::kNotFound);
}

TEST(AdjustPhotoTest, ProgressGoesThroughTheStages) {
  TestWindow window;
  RecordingView view;
  window.progress.view = &view;
  SetModules(window, {kSmartPhotoCorrection, kColorRotation});
  window.modules.sliders[12].text = "10";
  window.Show(NoisyPicture(7, 5, 1));
  ASSERT_TRUE(AdjustPhoto(window.form, true).ok());
  // The window may come up before or after its first text.
  std::vector<std::string> texts = view.lines;
  std::erase(texts, "show");
  EXPECT_EQ(texts, (std::vector<std::string>{"Analyzing...", "Adjusting Photo...",
                                             "Rotating Hue...", "hide"}));
  // 200 / 7 x column, rounded half to even, halved.
  const std::vector<float> sevenths = {14.5f, 28.5f, 43, 57, 71.5f, 85.5f, 100};
  EXPECT_EQ(Drawn(view, "Adjusting Photo..."), sevenths);
}

// The progress window would cover the box and take the answer's keys.
TEST(AdjustPhotoTest, WhatIsToldAboutTheWhiteBalanceComesBeforeTheProgressWindow) {
  TestWindow window;
  RecordingView view;
  window.progress.view = &view;
  SetModules(window, {kSmartWhiteBalance});
  window.Show(NoisyPicture(7, 5, 1));
  window.dialogs.on_box = [&] { EXPECT_EQ(view.lines, std::vector<std::string>{}); };
  ASSERT_TRUE(AdjustPhoto(window.form, true).ok());
  EXPECT_EQ(window.dialogs.Told().size(), 1u);
}

TEST(AdjustPhotoTest, ALongPassTellsHowLongItWillStillTake) {
  class TimeView : public RecordingView {
   public:
    std::vector<std::string> told;
    void ShowTimeLeft(const std::string& time_left) override { told.push_back(time_left); }
  };
  TestWindow window;
  TimeView view;
  window.progress.view = &view;
  SetModules(window, {});
  window.Show(NoisyPicture(40, 160, 1));
  window.clock.step = 1'000'000'000;  // a second for each row
  ASSERT_TRUE(AdjustPhoto(window.form, false).ok());
  EXPECT_EQ(view.told, (std::vector<std::string>{"about 3 minutes left", "about 2 minutes left",
                                                 "about 1 minute left", "about 50 seconds left",
                                                 "about 40 seconds left", "about 30 seconds left",
                                                 "about 20 seconds left", ""}));
}

// --- Previews and full runs ---------------------------------------------------------------------

TEST(AdjustPhotoTest, RepeatedPreviewsDoNotCompound) {
  TestWindow window;
  SetModules(window, {kSmartPhotoCorrection, kAdjustBrightness, kRotation});
  window.modules.sliders[3].text = "30";
  window.Show(NoisyPicture(700, 40, 1));
  ASSERT_TRUE(AdjustPhoto(window.form, true).ok());
  const PixelArray first = Result(window);
  const std::string record = window.app.learning_record;
  EXPECT_EQ(first.height(), 320) << "a quarter turn of a 320 x 18 preview";
  ASSERT_TRUE(AdjustPhoto(window.form, true).ok());
  EXPECT_EQ(Result(window), first);
  EXPECT_EQ(window.app.learning_record, record);

  ASSERT_TRUE(AdjustPhoto(window.form, false).ok());
  TestWindow fresh;
  fresh.modules = window.modules;
  fresh.Show(NoisyPicture(700, 40, 1));
  ASSERT_TRUE(AdjustPhoto(fresh.form, false).ok());
  EXPECT_EQ(Result(window), Result(fresh)) << "after previews";
  EXPECT_EQ(window.app.learning_record, fresh.app.learning_record);

  ASSERT_TRUE(AdjustPhoto(window.form, true).ok());
  EXPECT_EQ(Result(window), first) << "after a full run";
}

TEST(AdjustPhotoTest, RefusesWhenNothingCanBeCorrected) {
  TestWindow window;
  EXPECT_EQ(AdjustPhoto(window.form, true).failure, Failure::kNotFound) << "no photo";
  window.Show(NoisyPicture(8, 8, 1));
  const PhotoSurfaces before = window.surfaces();
  const int runs = window.events.runs;
  window.app.closing = true;
  EXPECT_EQ(AdjustPhoto(window.form, false).failure, Failure::kCancelled);
  ExpectUntouched(before, window.surfaces());
  EXPECT_EQ(window.events.runs, runs);
  EXPECT_FALSE(window.app.photo_changed);
}

TEST(AdjustPhotoTest, RefusesToRunInsideARun) {
  TestWindow window;
  window.Show(NoisyPicture(330, 12, 1));
  ASSERT_TRUE(AdjustPhoto(window.form, false).ok());
  const PixelArray expected = Result(window);
  bool was_running = false;
  // A second click on Adjust, or a timer, while the run lets events in.
  window.events.on_run = [&](int run) {
    if (run % 50 == 0) {
      EXPECT_FALSE(AdjustPhoto(window.form, true).ok());
    }
    was_running = was_running || window.form.correcting;
  };
  ASSERT_TRUE(AdjustPhoto(window.form, false).ok());
  EXPECT_EQ(Result(window), expected);
  EXPECT_TRUE(was_running);
  EXPECT_FALSE(window.form.correcting);
}

}  // namespace
}  // namespace tarnwell
