#include <gtest/gtest.h>
#include <sstream>

#include "tests/support/console_desk.h"

namespace tarnwell {
namespace {

// Runs of the program that leave something for later ones.
struct RememberedTest : ConsoleDesk {
  // Field `column` of the record that was printed.
  std::string Field(int column) const {
    std::istringstream line(out.str());
    std::string field;
    for (int i = 0; i <= column; ++i) std::getline(line, field, '\t');
    return field;
  }
};

constexpr int kBrightnessColumn = 12;

TEST_F(RememberedTest, ALearntChangeIsProposedForALikePhotoUntilItIsReset) {
  WriteBitmap("a.bmp", 60, 40, 1);
  WriteBitmap("b.bmp", 60, 40, 2);
  const Words camera = {"--camera", "Phone", "--mode", "Night"};
  const auto correct = [&](Words words) {
    words.insert(words.end(), camera.begin(), camera.end());
    return Correct(words);
  };
  ASSERT_EQ(correct({"@b.bmp", "--output", "@before.bmp", "--record", "--no-learn"}), 0);
  EXPECT_EQ(Field(kBrightnessColumn), "0.0000");
  ASSERT_EQ(correct({"@a.bmp", "--output", "@a2.bmp", "--learn", "--record", "--module", "3=on",
                     "--slider", "3=40"}),
            0);
  const std::string learnt = Field(kBrightnessColumn);
  EXPECT_NE(learnt, "0.0000");

  ASSERT_EQ(correct({"@b.bmp", "--output", "@after.bmp", "--record", "--no-learn"}), 0);
  EXPECT_EQ(Field(kBrightnessColumn), learnt) << "the only record counts in full";
  EXPECT_NE(folder.Read("after.bmp"), folder.Read("before.bmp"));

  EXPECT_EQ(Run({"cameras"}), 0);
  EXPECT_EQ(out.str(), "Phone\n  Default: nothing learnt yet\n  Night: 1 correction learnt\n");
  EXPECT_EQ(Run({"learning", "--camera", "Phone", "--mode", "Night"}), 0);
  EXPECT_EQ(out.str(), "Camera Phone, mode Night: 1 correction learnt\n");
  EXPECT_EQ(Run({"learning", "--camera", "Phone", "--mode", "Night", "--reset"}), 0);
  EXPECT_EQ(out.str(), "Camera Phone, mode Night: what was learnt is deleted\n");
  EXPECT_FALSE(folder.Holds("program\\Cameras\\Phone\\Night\\Smart Data.tsd"));

  ASSERT_EQ(correct({"@b.bmp", "--output", "@again.bmp", "--no-learn"}), 0);
  EXPECT_EQ(folder.Read("again.bmp"), folder.Read("before.bmp"));
}

TEST_F(RememberedTest, CamerasAndLearningMakeNothing) {
  EXPECT_EQ(Run({"cameras"}), 0);
  EXPECT_EQ(out.str(), "");
  EXPECT_NE(err.str().find("no camera has been made yet"), std::string::npos);
  for (const Words& profile : {Words{}, {"--camera", "Gone"}, {"--camera", ".."}}) {
    Words words = {"learning"};
    words.insert(words.end(), profile.begin(), profile.end());
    EXPECT_EQ(Run(words), 2);
    EXPECT_NE(err.str().find("there is no such camera"), std::string::npos) << err.str();
  }
  EXPECT_EQ(folder.Names(), Words{});
}

TEST_F(RememberedTest, APresetGivesTheSamePictureAsItsSettings) {
  WriteBitmap("a.bmp", 60, 40, 1);
  folder.Write("warm.wbs", "Red: 240\r\nGrn: 220\r\nBlu: 200\r\nSld: 120\r\n");
  const Words settings = {"--module", "2=on",    "--module", "3=on",  "--slider",     "3=-20",
                          "--module", "6=on",    "--hue",    "60,40", "--module",     "13=on",
                          "--slider", "12=-100", "--check",  "3=0",   "--white-file", "@warm.wbs"};
  const auto with = [&](Words words) {
    words.insert(words.end(), settings.begin(), settings.end());
    return words;
  };
  ASSERT_EQ(Run(with({"correct", "@a.bmp", "--no-learn", "--output", "@set.bmp"})), 0);
  ASSERT_EQ(Run(with({"presets", "save", "@look.twp"})), 0) << err.str();
  EXPECT_EQ(out.str() + err.str(), "");
  ASSERT_EQ(
      Run({"correct", "@a.bmp", "--no-learn", "--preset", "@look.twp", "--output", "@preset.bmp"}),
      0);
  EXPECT_EQ(folder.Read("preset.bmp"), folder.Read("set.bmp"));

  const std::string text = folder.Read("look.twp");
  EXPECT_TRUE(text.starts_with("Red: 240\r\nGrn: 220\r\nBlu: 200\r\nSld: 120\r\n"));
  ASSERT_EQ(Run({"presets", "save", "@copy.twp", "--preset", "@look.twp"}), 0);
  EXPECT_EQ(folder.Read("copy.twp"), text);
}

TEST_F(RememberedTest, ACameraIsFoundAgainByTheNameItWasMadeWith) {
  WriteBitmap("a.bmp", 60, 40, 1);
  const Words profile = {"--camera", "Pixel 7/Pro", "--mode", "in/out"};
  for (Words words : {Words{"correct", "@a.bmp", "--quiet"}, {"learning"}}) {
    words.insert(words.end(), profile.begin(), profile.end());
    EXPECT_EQ(Run(words), 0) << err.str();
  }
  PixelArray dark(40, 30);
  ASSERT_TRUE(codec->SaveBitmap(folder.File("dark.bmp"), dark.view()).ok());
  ASSERT_EQ(Run({"deadpixels", "add", "--camera", "a:b", "@dark.bmp"}), 0) << err.str();
  EXPECT_EQ(Run({"deadpixels", "assess", "--camera", "a:b"}), 0) << err.str();
}

TEST_F(RememberedTest, WordsThatAPresetDoesNotKeepAreNamed) {
  const struct {
    Words words;
    std::string named;
  } rows[] = {{{"--check", "1=1", "--check", "3=1"}, "--check 1"},
              {{"--no-learn", "--rotation", "2"}, "--no-learn, --rotation"},
              {{"--white", "9,9,9", "--strip-place"}, "--white, --strip-place"},
              {{"--quality", "original", "--analyze", "full"}, "--quality original, --analyze"},
              {{"--quality", "90", "--extended-noise"}, "--extended-noise"}};
  for (const auto& row : rows) {
    Words words = {"presets", "save", "@look.twp"};
    words.insert(words.end(), row.words.begin(), row.words.end());
    EXPECT_EQ(Run(words), 0);
    EXPECT_TRUE(err.str().ends_with(": a preset does not keep " + row.named + "\n")) << err.str();
  }
}

TEST_F(RememberedTest, TestShotsBecomeAMapThatRepairsPhotosOfTheirCamera) {
  PixelArray dark(40, 30);
  std::uint8_t* hot = dark.mutable_view().at(17, 11);
  hot[kRed] = 200;
  ASSERT_TRUE(codec->SaveBitmap(folder.File("dark.bmp"), dark.view()).ok());
  WriteBitmap("grey.bmp", 60, 40);

  ASSERT_EQ(Run({"deadpixels", "assess", "--camera", "Phone"}), 2) << "there is no such camera";
  EXPECT_EQ(Run({"deadpixels", "add", "--camera", "Phone", "@dark.bmp", "@grey.bmp"}), 1);
  EXPECT_TRUE(out.str().ends_with("dark.bmp: dark shot of 40x30, kept as Input1.BMP\n"));
  EXPECT_TRUE(err.str().ends_with(
      "grey.bmp is neither very bright or very dark, and cannot be assessed\n"));
  EXPECT_EQ(Run({"deadpixels", "assess", "--camera", "Phone"}), 0) << err.str();
  EXPECT_EQ(out.str(), "40x30: 1 stuck pixel found in 1 dark shot and 0 light shots\n");

  ASSERT_EQ(Run({"correct", "@dark.bmp", "--camera", "Phone", "--module", "8=on", "--module",
                 "1=off", "--no-learn", "--output", "@repaired.bmp"}),
            0);
  EXPECT_EQ(Load("repaired.bmp")->view().at(17, 11)[kRed], 0);
}

}  // namespace
}  // namespace tarnwell
