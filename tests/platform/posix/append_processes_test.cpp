#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/crowded_file.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

TEST(AppendProcessesTest, AppendsFromManyProcessesLoseAndMixNothing) {
  TempFolder folder;
  CrowdedFile crowded(folder.File("Smart Data.tsd"));
  for (int writer = 0; writer < CrowdedFile::kWriters; ++writer) {
    const pid_t child = fork();
    ASSERT_NE(child, -1);
    if (child == 0) _exit(crowded.AppendAll(writer) ? 0 : 1);
  }
  int at_work = CrowdedFile::kWriters;
  while (at_work > 0) {
    crowded.TakeFirstLines();
    int outcome = 0;
    while (at_work > 0 && waitpid(-1, &outcome, WNOHANG) > 0) {
      --at_work;
      EXPECT_EQ(outcome, 0) << "a writer could not append";
    }
  }
  crowded.ExpectEveryLineOnce();
}

}  // namespace
}  // namespace tarnwell
