#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "engine/adjust_photo.h"
#include "engine/learning_store.h"
#include "tests/support/pictures.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

// What the user wants of a kind of photos, as shares of brightness and saturation and as a contrast
// factor. The taste does not change.
struct Taste {
  int darkest;  // the photos of this kind start here
  double brightness, saturation, contrast;
};
constexpr Taste kTastes[] = {{10, 0.25, 0.1, -0.2}, {120, -0.1, -0.2, 0.15}};

// A user who corrects one photo after the other until it is to their taste, and saves it.
class SteadyUser {
 public:
  // How far the proposal was from the wish, summed over the three settings.
  double CorrectAndSave(int save) {
    const Taste& taste = kTastes[save % 2];
    window_.Show(PhotoOf(taste, save));
    window_.form.correction_ready = false;
    for (const int module : {3, 4, 5}) window_.modules.open[module] = 0;
    const LearntProposal proposed = Correct();
    const std::array<double, 3> missing = {taste.brightness - proposed.brightness,
                                           taste.saturation - proposed.saturation,
                                           taste.contrast - proposed.contrast};
    // The sliders add twice their share to the factors, which the proposal multiplies.
    const StoredRecord measured = ParseLearningRecord(window_.app.learning_record);
    Move(3, missing[0] * *measured.fields[kToneGain] / 2);
    Move(5, missing[1] * *measured.fields[kSaturationMultiplier] / 2);
    Move(4, -missing[2]);
    Correct();
    EXPECT_TRUE(AppendLearningRecord(window_.form).ok());
    return std::abs(missing[0]) + std::abs(missing[1]) + std::abs(missing[2]);
  }

 private:
  LearntProposal Correct() {
    window_.form.learning = LoadLearningData(*window_.files, window_.app.mode_folder).data;
    EXPECT_TRUE(AdjustPhoto(window_.form, /*preview=*/true).ok());
    return window_.form.learnt;
  }

  void Move(int slider, double share) {
    window_.modules.open[slider] = 1;
    const int value = std::clamp(static_cast<int>(std::lround(100 * share)), -100, 100);
    window_.modules.sliders[slider].text = std::to_string(value);
  }

  static Picture PhotoOf(const Taste& taste, int seed) {
    auto photo = std::make_shared<PixelArray>(24, 16);
    const int shift = seed * 7 % 13;
    for (int i = 0; i < 24 * 16; ++i) {
      const int x = i % 24, y = i / 24;
      SetPixel(photo->mutable_view(), x, y,
               {taste.darkest + shift + 4 * x, taste.darkest + 5 * y, taste.darkest + 2 * (x + y)});
    }
    return photo;
  }

  TestWindow window_;
};

TEST(LearningCurveTest, ProposalsComeNearerToASteadyTasteWithEverySave) {
  SteadyUser user;
  // The mean distance over the saves up to each of these counts.
  const std::vector<int> counts = {2, 4, 8, 16, 32, 64};
  std::vector<double> curve;
  int save = 0;
  for (const int count : counts) {
    double total = 0;
    const int first = save;
    while (save < count) total += user.CorrectAndSave(save++);
    curve.push_back(total / (count - first));
    RecordProperty("saves_" + std::to_string(count), std::to_string(curve.back()));
  }
  for (std::size_t i = 1; i < curve.size(); ++i) EXPECT_LT(curve[i], curve[i - 1]) << counts[i];
  EXPECT_LT(curve.back(), curve.front() / 4);
}

TEST(ProposalTextTest, SaysWhoSpokeAndHowFarItMoved) {
  const struct {
    LearntProposal proposal;
    const char* text;
  } kCases[] = {
      {{}, ""},
      {{.records = 7}, "no photo like this one among the 7 learnt from"},
      {{9, 2, 0.3, -0.2, 0.3},
       "learnt from 2 similar photos: brightness +30 %, saturation -20 %, contrast -30 %"},
      {{7, 1, -0.004, 1e38, 0.004}, "learnt from 1 similar photo: saturation +999 %"},
      {{7, 3, 0.004, 0, -0.004}, "learnt from 3 similar photos: nothing to change"},
  };
  for (const auto& row : kCases) EXPECT_EQ(ProposalText(row.proposal), row.text);
}

}  // namespace
}  // namespace tarnwell
