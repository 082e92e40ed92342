#include <algorithm>
#include <gtest/gtest.h>

#include "tests/support/console_desk.h"
#include "tests/support/tiny_pictures.h"

namespace tarnwell {
namespace {

constexpr char kLearningInFolder[] = "program\\Cameras\\Default\\Default\\Smart Data.tsd";

using ProgramTest = ConsoleDesk;

TEST_F(ProgramTest, WrongCommandsEndWithTheListOfCommands) {
  for (const Words& words : {Words{}, Words{"frobnicate"}, Words{"--verbose"}}) {
    EXPECT_EQ(RunProgram(words, host), 2);
    EXPECT_TRUE(ErrHas("correct PHOTO...")) << err.str();
  }
  EXPECT_EQ(out.str(), "");
  err.str("");
  for (const Words& words : {Words{"--help"}, Words{"--version"}, Words{"correct", "--help"}}) {
    out.str("");
    EXPECT_EQ(RunProgram(words, host), 0);
    EXPECT_NE(out.str(), "");
    EXPECT_EQ(err.str(), "");
  }
}

TEST_F(ProgramTest, SavesUnderTheNextFreeNameAndSaysSo) {
  WriteBitmap("p.q.bmp", 30, 20);
  EXPECT_EQ(Correct({"@p.q.bmp"}), 0);
  EXPECT_EQ(err.str(), Shown("p.q.bmp") + ": saved as " + Shown("pA.bmp") + "\n");
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(Correct({"@p.q.bmp", "--quiet"}), 0);
  EXPECT_EQ(out.str() + err.str(), "");
  EXPECT_EQ(folder.Names(), (Words{"p.q.bmp", "pA.bmp", "pB.bmp", "program"}));
  EXPECT_NE(*Load("pA.bmp"), *Load("p.q.bmp"));
  EXPECT_EQ(*Load("pA.bmp"), *Load("pB.bmp"));
}

TEST_F(ProgramTest, NewFilesAreNamedInTheSpellingOfTheWords) {
  WriteBitmap("p.bmp", 30, 20);
  folder.Write("g.gif", kProgressiveJpeg);
  const struct {
    Words words;
    std::string saved_as;
  } rows[] = {{{"@p.bmp", "--output", "@x.jpg"}, Shown("x.jpg")},
              {{"@p.bmp", "--output-folder", "@"}, Shown("pA.bmp")},
              {{"@p.bmp", "--output-folder", "@out"}, Shown("out\\pA.bmp")},
              {{"@g.gif"}, Shown("gA.gif") + ", written as a bitmap"}};
  folder.MakeFolder("out");
  for (const auto& row : rows) {
    EXPECT_EQ(Correct(row.words), 0);
    EXPECT_TRUE(err.str().ends_with(": saved as " + row.saved_as + "\n")) << err.str();
  }
}

TEST_F(ProgramTest, APhotoWithoutAQualityOfItsOwnIsNamedWhereThatIsWanted) {
  folder.MakeFolder("album");
  WriteBitmap("album\\p.bmp", 30, 20);
  const struct {
    Words words;
    bool told;
  } rows[] = {
      {{"correct", "@album\\p.bmp", "--output", "@a.jpg", "--quality", "original"}, true},
      {{"correct", "@album\\p.bmp", "--output", "@a.bmp", "--quality", "original"}, false},
      {{"correct", "@album\\p.bmp", "--output", "@b.jpg", "--quality", "80"}, false},
      {{"directory", "@album", "--quality", "original"}, true},
      {{"directory", "@album", "--quality", "original", "--quiet"}, false},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Run(row.words), 0);
    EXPECT_EQ(ErrHas("p.bmp: Saved with quality 80, because the photo has none of its own."),
              row.told)
        << err.str();
  }
}

TEST_F(ProgramTest, SettingsWithoutEffectAreNamedOnce) {
  WriteBitmap("p.bmp", 30, 20);
  const struct {
    Words words;
    std::string named;  // nothing when all have one
  } rows[] = {
      {{"--slider", "3=20", "--slider", "3=30"}, "--slider 3 has no effect while module 3"},
      {{"--module", "3=on", "--slider", "3=20", "--slider", "6=70", "--check", "2=0"}, ""},
      {{"--module", "10=off", "--module", "11=off", "--quality", "9", "--check", "2=0"}, ""},
      {{"--slider", "0=20"}, "--slider 0 has no effect while check option 0"},
      {{"--slider", "1=20", "--check", "1=1"}, ""},
      {{"--module", "1=off", "--slider", "0=20"}, "--slider 0 has no effect while module 1"},
      {{"--module", "1=off", "--analyze", "full"}, "--analyze has no effect while module 1"},
      {{"--check", "4=0"}, "--check 4 has no effect while module 7"},
      {{"--white", "9,9,9"}, "--white has no effect while module 2"},
      {{"--hue", "9,9"}, "--hue has no effect while module 6"},
      {{"--rotation", "1"}, "--rotation has no effect while module 9"}};
  for (const auto& row : rows) {
    Words words = {"@p.bmp", "--no-learn"};
    words.insert(words.end(), row.words.begin(), row.words.end());
    EXPECT_EQ(Correct(words), 0);
    EXPECT_EQ(ErrLines(), row.named.empty() ? 1 : 2) << err.str();
    EXPECT_TRUE(err.str().starts_with(row.named)) << err.str();
  }
}

TEST_F(ProgramTest, SettingsReachTheCorrection) {
  WriteBitmap("p.bmp", 30, 20);
  const Picture photo = Load("p.bmp");
  EXPECT_EQ(Correct({"@p.bmp", "--module", "1=off", "--output", "@same.bmp"}), 0) << err.str();
  EXPECT_EQ(*Load("same.bmp"), *photo);
  EXPECT_EQ(Correct({"@p.bmp", "--module", "1=off", "--slider", "6=100", "--output", "@p.jpg"}), 0);
  const Picture jpeg = Load("p.jpg");  // noise blurs; a turn or a swapped channel is worse
  for (std::size_t i = 0; i < photo->view().byte_count(); ++i) {
    ASSERT_NEAR(jpeg->view().data[i], photo->view().data[i], 90) << "byte " << i;
  }
  EXPECT_EQ(Correct({"@p.bmp", "--module", "1=off", "--module", "9=on", "--rotation", "4"}), 0);
  const Picture mirrored = Load("pA.bmp");
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 30; ++x) {
      ASSERT_TRUE(std::equal(photo->view().at(x, y), photo->view().at(x, y) + 3,
                             mirrored->view().at(29 - x, y)));
    }
  }
  const Words rows[] = {{"--module", "3=on", "--slider", "3=20"},
                        {"--module", "2=on", "--white", "250,200,180"},
                        {"--module", "6=on", "--hue", "90,53"},
                        {"--module", "13=on", "--slider", "12=120"}};
  for (Words words : rows) {
    words.insert(words.end(), {"@p.bmp", "--module", "1=off", "--output", "@changed.bmp"});
    EXPECT_EQ(Correct(words), 0) << err.str();
    EXPECT_NE(*Load("changed.bmp"), *photo) << words[1];
    EXPECT_TRUE(files->Delete(folder.File("changed.bmp")).ok());
  }
}

TEST_F(ProgramTest, TheFullPhotoIsCorrectedUnlessThePreviewIsAskedFor) {
  WriteBitmap("p.bmp", 640, 400);
  EXPECT_EQ(Correct({"@p.bmp", "--output", "@full.jpg"}), 0) << err.str();
  EXPECT_EQ(Correct({"@p.bmp", "--preview", "--output", "@small.bmp"}), 0) << err.str();
  const Picture full = Load("full.jpg");
  const Picture small = Load("small.bmp");
  EXPECT_EQ(full->width(), 640);
  EXPECT_EQ(full->height(), 400);
  EXPECT_EQ(small->width(), 320);
  EXPECT_EQ(small->height(), 200);
}

TEST_F(ProgramTest, TheRecordIsTheOnlyOutput) {
  WriteBitmap("p.bmp", 30, 20);
  EXPECT_EQ(Correct({"@p.bmp", "--record", "--quiet"}), 0);
  const std::string record = out.str();
  EXPECT_EQ(std::count(record.begin(), record.end(), '\t'), 20);
  EXPECT_EQ(record.find('\n'), record.size() - 1);
  EXPECT_EQ(err.str(), "");

  EXPECT_EQ(Correct({"@p.bmp", "--record", "--module", "1=off"}), 0);
  EXPECT_EQ(out.str(), "") << "nothing was measured";
}

TEST_F(ProgramTest, LostOutputIsNoSuccess) {
  struct FullDisk : std::streambuf {
  } full;
  std::ostream lost(&full);
  ConsoleHost onto_full_disk{lost, err};
  WriteBitmap("p.bmp", 30, 20);
  const std::string program = folder.File("program");
  const Words rows[] = {{"correct", folder.File("p.bmp"), "--record", "--program-folder", program},
                        {"cameras", "--program-folder", program},
                        {"--help"}};
  for (const Words& words : rows) {
    lost.clear();
    err.str("");
    EXPECT_EQ(RunProgram(words, onto_full_disk), 1) << words[0];
    EXPECT_TRUE(ErrHas("standard output could not be written")) << words[0];
  }
  EXPECT_TRUE(folder.Holds("pA.bmp"));
}

TEST_F(ProgramTest, EachPhotoThatFailsIsNamedAndTheOthersAreDone) {
  WriteBitmap("good.bmp", 30, 20);
  folder.Write("damaged.jpg", "\xff\xd8\xff");
  EXPECT_EQ(Correct({"@missing.jpg", "@damaged.jpg", "@good.bmp"}), 1);
  EXPECT_EQ(ErrLines(), 3) << err.str();
  EXPECT_NE(err.str().find(files->Display(folder.File("missing.jpg")) + ": "), std::string::npos)
      << err.str();
  EXPECT_NE(err.str().find(files->Display(folder.File("damaged.jpg")) + ": "), std::string::npos)
      << err.str();
  EXPECT_EQ(folder.Names(), (Words{"damaged.jpg", "good.bmp", "goodA.bmp", "program"}));
}

TEST_F(ProgramTest, AnInterruptedCommandLeavesNoFile) {
  WriteBitmap("p.bmp", 400, 300);
  // Wherever the wish to stop comes in, there is the source alone, or the finished photo.
  bool finished = false;
  for (int after = 0; !finished && after < 5000; after = after * 2 + 1) {
    int asked = 0;
    host.interrupted = [&asked, after] { return ++asked > after; };
    const int code = Correct({"@p.bmp", "--no-learn", "--quiet"});
    finished = code == 0;
    EXPECT_EQ(code, finished ? 0 : 130) << after;
    EXPECT_EQ(folder.Names().size(), finished ? 3u : 2u) << after;
    EXPECT_EQ(err.str(), "") << after;
  }
  EXPECT_TRUE(finished);
}

TEST_F(ProgramTest, PhotosOfOneCommandDoNotTeachEachOther) {
  WriteBitmap("p.bmp", 30, 20);
  const Words brighter = {"@p.bmp", "@p.bmp", "--module", "3=on", "--slider", "3=30", "--record"};
  EXPECT_EQ(Correct(brighter), 0) << err.str();
  const std::string first = out.str();
  EXPECT_EQ(first.substr(0, first.size() / 2), first.substr(first.size() / 2));
  const std::string learnt = folder.Read(kLearningInFolder);
  EXPECT_EQ(std::count(learnt.begin(), learnt.end(), '\n'), 2);

  EXPECT_EQ(Correct({"@p.bmp", "--no-learn"}), 0);
  EXPECT_TRUE(ErrHas("p.bmp: learnt from 2 similar photos: brightness +30 %")) << err.str();
  EXPECT_EQ(folder.Read(kLearningInFolder), learnt);
}

TEST_F(ProgramTest, ProgressIsDrawnOnATerminalOnly) {
  WriteBitmap("p.bmp", 400, 300);
  host.err_is_terminal = true;
  EXPECT_EQ(Correct({"@p.bmp"}), 0);
  EXPECT_NE(err.str().find("Adjusting Photo..."), std::string::npos);
  EXPECT_NE(err.str().find("\r\x1b[K" + Shown("p.bmp")), std::string::npos)
      << "the line is wiped at the end";
  host.columns = [] { return 30; };
  EXPECT_EQ(Correct({"@p.bmp"}), 0);
  EXPECT_NE(err.str().find("[......"), std::string::npos);
  EXPECT_EQ(err.str().find("] "), std::string::npos) << "it is cut at the terminal's width";
  EXPECT_EQ(Correct({"@p.bmp", "--quiet"}), 0);
  EXPECT_EQ(err.str(), "");
}

}  // namespace
}  // namespace tarnwell
