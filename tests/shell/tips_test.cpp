#include "shell/tips.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "tests/support/main_desk.h"

namespace tarnwell {
namespace {

using Log = std::vector<std::string>;

TEST(Tips, EveryNumberHasATextOfItsOwn) {
  for (int tip = 1; tip <= kTipCount; ++tip) EXPECT_EQ(TipWithText(TipText(tip)), tip);
  EXPECT_EQ(TipText(0), "");
  EXPECT_EQ(TipText(kTipCount + 1), "");
  EXPECT_EQ(TipWithText(""), std::nullopt);
}

TEST(Tips, LeafingComesRoundAtBothEnds) {
  EXPECT_EQ(NeighbourTip(1, -1), kTipCount);
  EXPECT_EQ(NeighbourTip(kTipCount, 1), 1);
  EXPECT_EQ(NeighbourTip(3, 1), 4);
}

TEST(Tips, MarksSurviveTheSettingsFile) {
  Tips tips;
  HideTip(tips, kPreviewTip, true);
  HideTip(tips, kPickSkinTip, true);
  HideTip(tips, kTipCount + 1, true);
  EXPECT_EQ(HiddenTipsText(tips), "3 8");
  EXPECT_EQ(TipsSettingText(tips), "0");
  tips.never_show = true;

  Tips read;
  ReadTips(read, TipsSettingText(tips), HiddenTipsText(tips));
  EXPECT_TRUE(read.never_show);
  EXPECT_EQ(read.hidden, tips.hidden);
}

TEST(Tips, UnreadableMarksAreLeftOut) {
  struct Case {
    const char* hidden;
    const char* kept;
  };
  for (const auto& [hidden, kept] :
       {Case{"", ""}, Case{" 2  x 5 ", "2 5"}, Case{"0 9 -1 4", "4"}, Case{"99999999999 1", "1"}}) {
    Tips tips;
    ReadTips(tips, "", hidden);
    EXPECT_EQ(HiddenTipsText(tips), kept);
    EXPECT_FALSE(tips.never_show);
  }
}

TEST(Tips, ATipIsOfferedOnceUnlessItIsPutAway) {
  MainDesk desk;
  HideTip(desk.tips_wanted, kModuleSwitchTip, true);
  for (int tip : {1, 2, 1, 3, 3, 0, kTipCount + 1}) OfferTip(desk.window, tip);
  EXPECT_EQ(desk.view.log, (Log{"tip 1", "tip 3"}));
  desk.tips_wanted.never_show = true;
  OfferTip(desk.window, 5);
  EXPECT_EQ(desk.view.log.size(), 2u);
  RestoreAllTips(desk.tips_wanted);
  OfferTip(desk.window, 1);
  OfferTip(desk.window, 2);
  EXPECT_EQ(desk.view.log.size(), 4u);
}

TEST(Tips, ClosingAModuleExplainsWhatThatMeans) {
  MainDesk desk;
  desk.modules.open[kRotation] = 1;
  OfferModuleTip(desk.window, kRotation);
  EXPECT_EQ(desk.view.log, Log{});
  desk.modules.open[kRotation] = 0;
  OfferModuleTip(desk.window, kRotation);
  desk.modules.open[kSmartPhotoCorrection] = 0;
  OfferModuleTip(desk.window, kSmartPhotoCorrection);
  EXPECT_EQ(desk.view.log, (Log{"tip 2", "tip 4"}));
}

TEST(Tips, TheZoomWindowExplainsHowToPick) {
  MainDesk desk;
  for (const ZoomMode mode : {ZoomMode::kViewOnly, ZoomMode::kPickWhite, ZoomMode::kPickSkin}) {
    OfferZoomTip(desk.window, mode);
  }
  EXPECT_EQ(desk.view.log, (Log{"tip 7", "tip 8"}));
}

TEST(Tips, OpeningAPhotoOffersThePreviewAndMissesDeadPixels) {
  MainDesk desk;
  desk.Connect();
  desk.app.open_mode = 2;
  desk.modules.open[kDeadPixelCorrection] = 1;
  const std::string photo = desk.WriteBitmap("a.bmp", NoisyPicture(30, 20, 2));
  for (int time = 0; time < 2; ++time) ASSERT_TRUE(OpenPhotoFile(desk.form, photo).ok());
  EXPECT_EQ(desk.view.log, (Log{"tip 3", "tip 6"}));
}

}  // namespace
}  // namespace tarnwell
