#include "engine/focus_pass.h"

#include <gtest/gtest.h>

#include "engine/pass.h"
#include "tests/support/pictures.h"

namespace tarnwell {
namespace {

// Settings under which every step does something and some pixels leave 0..255 in between.
AdjustmentSettings Lively(double amount, int distance) {
  AdjustmentSettings settings;
  settings.focus = FocusSettings{amount, distance, 1};
  settings.black_level = 9;
  settings.gain = 1.21;
  settings.hue_factors = {-0.1f, 0.2f, 0.05f};
  settings.white_balance_offsets = {0.1, -0.05, 0.2};
  settings.saturation_multiplier = 1.4;
  settings.contrast_factor = -0.2;
  return settings;
}

// Settings of an ordinary run, most steps off.
AdjustmentSettings Ordinary(double amount, int distance) {
  AdjustmentSettings settings;
  settings.focus = FocusSettings{amount, distance, 1};
  settings.gain = 1.21;
  settings.saturation_multiplier = 1.4;
  return settings;
}

void ExpectSameAsColumnByColumn(const PixelArray& picture, const PixelArray* smooth,
                                const AdjustmentSettings& settings) {
  PixelArray expected = picture;
  for (int x = 0; x < picture.width(); ++x) {
    FocusColumn(expected.mutable_view(), smooth ? smooth->view() : expected.view(), x, settings);
  }
  const ToneTable table(settings);
  for (const int threads : {1, 2, 5}) {
    // The plain form serves every processor, the other one only some.
    const Instructions instructions = threads == 1 ? Instructions::kPlain : BestInstructions();
    for (const ToneTable* tones : {static_cast<const ToneTable*>(nullptr), &table}) {
      PixelArray actual(picture.width(), picture.height());
      FocusPass focus(picture.view(), smooth ? smooth->view() : picture.view(),
                      actual.mutable_view(), settings, tones, instructions);
      const auto go_on = [](int) { return true; };
      ForEachPart(
          focus.strip_count(), 1, threads, [&](int i) { focus.Read(i); }, go_on);
      ForEachPart(
          focus.part_count(), 1, threads, [&](int i) { focus.Adjust(i); }, go_on);
      ForEachPart(
          focus.band_count(), 1, threads, [&](int i) { focus.Write(i); }, go_on);
      ASSERT_TRUE(actual == expected)
          << picture.width() << " x " << picture.height() << ", distance "
          << settings.focus->distance << ", amount " << settings.focus->amount << ", " << threads
          << " threads" << (tones ? ", table" : "") << (smooth ? ", smoothed before" : "");
    }
  }
}

TEST(FocusPassTest, GivesTheSameAsColumnByColumn) {
  for (const auto& [width, height] : {std::pair{1, 1},
                                      {1, 9},
                                      {9, 1},
                                      {3, 2},
                                      {4, 4},
                                      {5, 70},
                                      {31, 23},
                                      {70, 131},
                                      {13, 330},
                                      {530, 20}}) {
    const auto picture = NoisyPicture(width, height, width + height);
    const auto smooth = RandomPixels(width, height, 8);
    for (const int distance : {1, 2, 3, 7, 12, 40, 200}) {
      if (distance > 100 && width * height > 5000) continue;  // the simple form takes seconds
      const double amount = distance % 2 ? 0.38 : -1.7;
      ExpectSameAsColumnByColumn(*picture, nullptr, Lively(amount, distance));
      ExpectSameAsColumnByColumn(*picture, smooth.get(), Ordinary(2, distance));
    }
  }
}

TEST(FocusPassTest, LeavesToOthersWhatItsSumsCannotHold) {
  EXPECT_TRUE(FocusPass::Suits({-100, 1000, 1}));
  EXPECT_FALSE(FocusPass::Suits({0.5, 3, 2}));
  EXPECT_FALSE(FocusPass::Suits({0.5, 1001, 1}));
  EXPECT_FALSE(FocusPass::Suits({200, 3, 1}));
}

TEST(FocusPassTest, StoppedThreadsDoNotWaitForEver) {
  const auto picture = NoisyPicture(200, 300, 1);
  const AdjustmentSettings settings = Lively(0.5, 3);
  for (int stop_at = 1; stop_at <= 30; ++stop_at) {
    PixelArray pixels = *picture;
    FocusPass focus(pixels.view(), pixels.view(), pixels.mutable_view(), settings, nullptr);
    EXPECT_FALSE(ForEachPart(
        focus.part_count(), 1, 5, [&](int part) { focus.Adjust(part); },
        [&](int done) {
          if (done < stop_at) return true;
          focus.Stop();
          return false;
        }));
  }
}

}  // namespace
}  // namespace tarnwell
