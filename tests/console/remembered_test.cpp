#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

#include "console/console_host.h"
#include "console/program.h"
#include "imaging/pixel_array.h"
#include "platform/picture_codec.h"
#include "platform/system.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

using Words = std::vector<std::string>;

// Runs of the program that leave something for later ones, in a program folder of their own.
class RememberedTest : public testing::Test {
 protected:
  // Words that start with "@" are names in the folder.
  int Run(Words words) {
    for (std::string& word : words) {
      if (word.starts_with('@')) word = folder.File(word.substr(1));
    }
    words.insert(words.end(), {"--program-folder", folder.File("program")});
    out.str("");
    err.str("");
    return RunProgram(words, host);
  }

  // A dull photo, `lift` levels brighter than the darkest.
  void WritePhoto(const std::string& name, int lift) {
    PixelArray photo(60, 40);
    for (int y = 0; y < 40; ++y) {
      for (int x = 0; x < 60; ++x) {
        std::uint8_t* pixel = photo.mutable_view().at(x, y);
        pixel[kBlue] = static_cast<std::uint8_t>(40 + lift + 2 * x);
        pixel[kGreen] = static_cast<std::uint8_t>(50 + lift + 3 * y);
        pixel[kRed] = static_cast<std::uint8_t>(70 + lift + x + y);
      }
    }
    const Status saved = codec->SaveBitmap(folder.File(name), photo.view());
    ASSERT_TRUE(saved.ok()) << saved.message;
  }

  // Field `column` of the record that was printed.
  std::string Field(int column) const {
    std::istringstream line(out.str());
    std::string field;
    for (int i = 0; i <= column; ++i) std::getline(line, field, '\t');
    return field;
  }

  TempFolder folder;
  std::unique_ptr<PictureCodec> codec = MakeSystemPictureCodec();
  std::ostringstream out;
  std::ostringstream err;
  ConsoleHost host{out, err};
};

constexpr int kBrightnessColumn = 12;

TEST_F(RememberedTest, ALearntChangeIsProposedForALikePhotoUntilItIsReset) {
  WritePhoto("a.bmp", 0);
  WritePhoto("b.bmp", 2);
  const Words camera = {"--camera", "Phone", "--mode", "Night"};
  const auto correct = [&](Words words) {
    words.insert(words.begin(), "correct");
    words.insert(words.end(), camera.begin(), camera.end());
    return Run(words);
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

TEST_F(RememberedTest, ADamagedLearningFileIsNamedWithItsLine) {
  folder.Write("program\\Cameras\\Default\\Default\\Smart Data.tsd", "1\t2\r\n");
  WritePhoto("a.bmp", 0);
  EXPECT_EQ(Run({"learning"}), 1);
  EXPECT_NE(err.str().find("Smart Data.tsd: line 1: "), std::string::npos);
  EXPECT_EQ(Run({"cameras"}), 1);
  EXPECT_EQ(Run({"correct", "@a.bmp", "--no-learn"}), 0) << "the photo is done all the same";
  EXPECT_NE(err.str().find("Smart Data.tsd: line 1: "), std::string::npos);
}

TEST_F(RememberedTest, APresetGivesTheSamePictureAsItsSettings) {
  WritePhoto("a.bmp", 0);
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

TEST_F(RememberedTest, PresetsSaySoWhenTheyDoNotKeepASetting) {
  EXPECT_EQ(Run({"presets", "save", "@a.twp", "--rotation", "1", "--check", "0=1", "--check", "4=0",
                 "--no-learn"}),
            0);
  EXPECT_TRUE(err.str().ends_with(": a preset does not keep --check 0, --no-learn, --rotation\n"))
      << err.str();
  EXPECT_EQ(Run({"presets", "save", "@no folder\\a.twp"}), 1);
  EXPECT_EQ(Run({"presets", "save", "@b.twp", "--preset", "@missing.twp"}), 2);
  EXPECT_FALSE(folder.Holds("b.twp"));
  for (const Words& words : {Words{"presets"},
                             {"presets", "save"},
                             {"presets", "load", "@a.twp"},
                             {"cameras", "Phone"},
                             {"learning", "--resets"}}) {
    EXPECT_EQ(Run(words), 2) << words.back();
    EXPECT_NE(err.str().find("Usage: tarnwell-pocket " + words.front()), std::string::npos);
  }
}

TEST_F(RememberedTest, TestShotsBecomeAMapThatRepairsPhotosOfTheirCamera) {
  PixelArray dark(40, 30);
  std::uint8_t* hot = dark.mutable_view().at(17, 11);
  hot[kRed] = 200;
  ASSERT_TRUE(codec->SaveBitmap(folder.File("dark.bmp"), dark.view()).ok());
  WritePhoto("grey.bmp", 60);

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
  EXPECT_EQ((*codec->Load(folder.File("repaired.bmp")))->view().at(17, 11)[kRed], 0);
}

}  // namespace
}  // namespace tarnwell
