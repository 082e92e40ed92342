#include "shell/frm_progress.h"

#include <gtest/gtest.h>
#include <vector>

#include "tests/support/recording_events.h"

namespace tarnwell {
namespace {

TEST(ProgressTest, EveryStageNumberShowsItsText) {
  struct Row {
    const char* name;
    std::vector<int> stages;
    const char* text;
  };
  const Row rows[] = {
      {"collecting", {0}, "Collecting Information..."},
      {"analyzing", {1}, "Analyzing..."},
      {"preview", {2}, "Adjusting Photo..."},
      {"full size", {3}, "Adjusting Photo..."},
      {"hue", {4}, "Rotating Hue..."},
      {"back", {1, 5}, "Analyzing..."},
      {"back twice", {1, 5, 5}, "Analyzing..."},
      {"on after going back", {1, 5, 4, 5}, "Rotating Hue..."},
      {"unknown", {4, 6}, "Rotating Hue..."},
      {"negative", {1, -1}, "Analyzing..."},
      {"back to unknown", {1, 9, 5}, "Analyzing..."},
  };
  for (const Row& row : rows) {
    frmProgress progress;
    for (int stage : row.stages) ShowStage(progress, stage);
    EXPECT_EQ(progress.lblJob, row.text) << row.name;
    EXPECT_EQ(progress.stage, row.stages.back()) << row.name;
  }
}

// The text may have been replaced meanwhile: going back brings the stage's own.
TEST(ProgressTest, GoingBackRestoresTheText) {
  frmProgress progress;
  ShowStage(progress, kAnalyzing);
  ShowStage(progress, kPreviousStage);
  progress.lblJob = "1 of 20";
  ShowStage(progress, kPreviousStage);
  EXPECT_EQ(progress.lblJob, "Analyzing...");
}

TEST(ProgressTest, ASweepTakes201TicksAndExactly100DoesNotWrap) {
  frmProgress progress;
  ShowStage(progress, kCollecting);
  for (int tick = 0; tick < 200; ++tick) Timer1_Tick(progress);
  EXPECT_EQ(progress.percentage, 100.0f);
  EXPECT_EQ(progress.stage, kCollecting);
  Timer1_Tick(progress);
  EXPECT_EQ(progress.percentage, 0.0f);
  EXPECT_EQ(progress.lblJob, "Analyzing...");
  EXPECT_EQ(progress.timer_interval, 20);
}

TEST(ProgressTest, TheAnimationCyclesThroughTheFirstThreeStages) {
  struct Row {
    int stage;
    int next;
  };
  for (const Row& row : {Row{0, 1}, Row{1, 2}, Row{2, 0}, Row{3, 0}, Row{4, 0}, Row{5, 0}}) {
    frmProgress progress;
    progress.stage = row.stage;
    progress.percentage = 99.75f;
    Timer1_Tick(progress);
    EXPECT_EQ(progress.stage, row.next) << "after " << row.stage;
  }
}

class RecordingView : public ProgressView {
 public:
  std::vector<float> bars;
  std::vector<std::string> texts;
  void ShowWindow() override {}
  void HideWindow() override {}
  void DrawBar(float percentage) override { bars.push_back(percentage); }
  void ShowText(const std::string& lblJob) override { texts.push_back(lblJob); }
};

TEST(ProgressTest, TheViewIsToldOfTextAndBar) {
  RecordingView view;
  frmProgress progress;
  progress.view = &view;
  ShowStage(progress, kAdjusting);
  ShowPercentage(progress, 100);
  Timer1_Tick(progress);
  EXPECT_EQ(view.texts,
            (std::vector<std::string>{"Adjusting Photo...", "Collecting Information..."}));
  EXPECT_EQ(view.bars, (std::vector<float>{100, 0}));
}

TEST(ProgressTest, CancelSetsTheFlagBetweenTwoBreaks) {
  frmProgress progress;
  bool cancel = false;
  std::vector<bool> seen;
  RecordingEvents events;
  events.on_run = [&](int) { seen.push_back(cancel && progress.cancel_pressed); };
  CancelClicked(progress, cancel, events);
  EXPECT_TRUE(cancel);
  EXPECT_EQ(seen, (std::vector<bool>{false, true}));
}

}  // namespace
}  // namespace tarnwell
