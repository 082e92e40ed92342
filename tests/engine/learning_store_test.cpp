#include "engine/learning_store.h"

#include <gtest/gtest.h>

#include "tests/support/faulty_files.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

constexpr char kFileInFolder[] = "program\\Cameras\\Default\\Default\\Smart Data.tsd";

TEST(AppendLearningRecordTest, AddsALineUnlessNothingMayBeLearnt) {
  struct Row {
    const char* check;
    bool suppressed;
    const char* record;
    const char* kept;
  };
  for (const Row& row : {Row{"1", false, "1\t2", "1\t2\r\n1\t2\r\n"},
                         {"0", false, "1\t2", ""},
                         {"1", true, "1\t2", ""},
                         {"1", false, "", ""}}) {
    TestWindow window;
    window.modules.checks[kLearnFromSavedPhotos] = row.check;
    window.app.suppress_learning = row.suppressed;
    window.app.learning_record = row.record;
    EXPECT_TRUE(AppendLearningRecord(window.form).ok());
    EXPECT_TRUE(AppendLearningRecord(window.form).ok());
    EXPECT_EQ(window.folder.Read(kFileInFolder), row.kept);
  }
}

// A record of 21 fields of which the first tells which one it is.
std::string Line(int number) {
  std::string line = std::to_string(number);
  for (int field = 1; field < kRecordColumns; ++field) line += "\t0";
  return line;
}

std::string Lines(int first, int last, const char* line_end = "\r\n") {
  std::string text;
  for (int number = first; number <= last; ++number) text += Line(number) + line_end;
  return text;
}

TEST(LoadLearningDataTest, ReadsUpToTheFirstEmptyLine) {
  const struct {
    const char* name;
    std::string text;
    std::size_t records;
    const char* complaint;  // behind the file's name
  } kRows[] = {
      {"empty file", "", 0, ""},
      {"CR LF", Lines(1, 3), 3, ""},
      {"no line end behind the last", Lines(1, 1) + Line(2), 2, ""},
      {"third line empty", Lines(1, 2) + "\r\n" + Lines(3, 9), 2, ""},
      {"too few fields", Lines(1, 1) + "1\t2\r\n" + Lines(3, 4), 4, ": line 2: "},
      {"too many fields", Lines(1, 1) + Line(2) + "\t1\r\n", 2, ": line 2: "},
      {"a word, then another", Line(1) + "x\r\ny\r\n", 2, ": line 1: "},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    TestWindow window;
    window.folder.Write(kFileInFolder, row.text);
    const LoadedLearning loaded = LoadLearningData(*window.files, window.app.mode_folder);
    EXPECT_EQ(loaded.data.records.size(), row.records);
    EXPECT_EQ(loaded.status.ok(), *row.complaint == '\0');
    EXPECT_NE(loaded.status.message.find(row.complaint), std::string::npos)
        << loaded.status.message;
    EXPECT_EQ(window.folder.Read(kFileInFolder), row.text) << "short files stay as they are";
  }
}

TEST(LoadLearningDataTest, MoreThanAThousandRecordsLoseTheOldestHundred) {
  const struct {
    const char* name;
    std::string before, after;
    int records;
  } kRows[] = {
      {"1000", Lines(1, 1000), Lines(1, 1000), 1000},
      {"1001", Lines(1, 1001), Lines(101, 1001), 1001},
      {"1300 with LF", Lines(1, 1300, "\n"), Lines(101, 1300), 1300},
      {"1001, then an empty line", Lines(1, 1001) + "\r\n" + Lines(1, 5), Lines(101, 1001), 1001},
      {"too many only behind an empty line", Lines(1, 999) + "\r\n" + Lines(1, 9),
       Lines(1, 999) + "\r\n" + Lines(1, 9), 999},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    TestWindow window;
    window.folder.Write(kFileInFolder, row.before);
    const LoadedLearning loaded = LoadLearningData(*window.files, window.app.mode_folder);
    EXPECT_TRUE(loaded.status.ok()) << loaded.status.message;
    EXPECT_EQ(std::ssize(loaded.data.records), row.records) << "this load still has them all";
    EXPECT_TRUE(window.folder.Read(kFileInFolder) == row.after);
    EXPECT_EQ(window.folder.Names("program\\Cameras\\Default\\Default").size(), 1u);
  }
}

// Another program has added a record, or trimmed, between the reading and the trim.
TEST(LoadLearningDataTest, WhatAnotherProgramDidMeanwhileIsKept) {
  const struct {
    const char* name;
    std::string meanwhile, after;
  } kRows[] = {
      {"added a record", Lines(1, 1002), Lines(101, 1002)},
      {"trimmed and added", Lines(101, 1010), Lines(101, 1010)},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    TestWindow window;
    window.folder.Write(kFileInFolder, Lines(1, 1001));
    FaultyFiles files;
    files.before_write = [&](const std::string&) {
      window.folder.Write(kFileInFolder, row.meanwhile);
      return Status::Ok();
    };
    EXPECT_TRUE(LoadLearningData(files, window.app.mode_folder).status.ok());
    EXPECT_TRUE(window.folder.Read(kFileInFolder) == row.after);
  }
}

TEST(ResetLearningSystemTest, OnlyYesDeletesTheFile) {
  for (const Answer answer : {Answer::kYes, Answer::kNo, Answer::kCancel}) {
    TestWindow window;
    window.folder.Write(kFileInFolder, Lines(1, 2));
    window.dialogs.answers = {answer};
    ResetLearningSystem(window.app, window.platform);
    EXPECT_EQ(window.folder.Holds(kFileInFolder), answer != Answer::kYes);
    EXPECT_EQ(window.dialogs.Told().size(), answer == Answer::kYes ? 1u : 0u);
  }
}

}  // namespace
}  // namespace tarnwell
