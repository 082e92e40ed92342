#include "engine/learning_store.h"

#include <gtest/gtest.h>

#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

constexpr char kFileInFolder[] = "program\\Cameras\\Default\\Default\\Smart Data.tsd";

TEST(AppendLearningRecordTest, AddsALineForEachSave) {
  TestWindow window;
  window.app.learning_record = "1\t2\t3";
  EXPECT_TRUE(AppendLearningRecord(window.form).ok());
  window.app.learning_record = "4\t5\t6";
  EXPECT_TRUE(AppendLearningRecord(window.form).ok());
  EXPECT_EQ(window.folder.Read(kFileInFolder), "1\t2\t3\r\n4\t5\t6\r\n");
}

TEST(AppendLearningRecordTest, KeepsNothingThatMustNotBeLearnt) {
  const struct {
    const char* name;
    const char* check;
    bool suppressed;
    const char* record;
  } kRows[] = {
      {"learning switched off", "0", false, "1\t2"},
      {"suppressed for this photo", "1", true, "1\t2"},
      {"the run measured nothing", "1", false, ""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    TestWindow window;
    window.modules.checks[kLearnFromSavedPhotos] = row.check;
    window.app.suppress_learning = row.suppressed;
    window.app.learning_record = row.record;
    EXPECT_TRUE(AppendLearningRecord(window.form).ok());
    EXPECT_FALSE(window.folder.Holds(kFileInFolder));
  }
}

TEST(AppendLearningRecordTest, AFailureNamesTheFile) {
  TestWindow window;
  SetProfile(window.app, "Default", "Gone");
  window.app.learning_record = "1\t2";
  const Status status = AppendLearningRecord(window.form);
  EXPECT_FALSE(status.ok());
  EXPECT_NE(status.message.find("Smart Data.tsd"), std::string::npos) << status.message;
}

}  // namespace
}  // namespace tarnwell
