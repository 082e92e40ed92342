#include "shell/start_up.h"

#include <gtest/gtest.h>
#include <string>

#include "platform/instances.h"
#include "shell/manifest.h"
#include "tests/support/faulty_files.h"
#include "tests/support/test_window.h"

namespace tarnwell {
namespace {

struct Instances : RunningInstances {
  bool another = false;
  bool AnotherIsRunning() override { return another; }
};

// The program in its folder, started before: the manifest is there.
struct StartDesk : TestWindow {
  using TestWindow::TestWindow;
  Instances instances;
  bool first_start = false;

  StartUp Start(const std::string& command_line) {
    if (!first_start) folder.Write("program\\Pocket.exe.manifest", "mine");
    return StartProgram(app, platform, instances, folder.File("program\\Pocket.exe"), command_line);
  }
  std::string Queue() const { return folder.Read("program\\queue.ini"); }
};

TEST(StartProgram, QueuesThePhotoOfTheCommandLine) {
  struct Case {
    const char* name;
    std::string before, after;  // the photo's path on the command line
    bool another;
    StartUp expected;
  };
  const Case cases[] = {
      {"plain, alone", "", "", false, StartUp::kLoadMainWindow},
      {"plain, another runs", "", "", true, StartUp::kEnd},
      {"quoted", "\"", "\"", true, StartUp::kEnd},
      {"quoted, with blanks around", "  \"", "\" ", false, StartUp::kLoadMainWindow},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    StartDesk desk;
    desk.folder.Write("program\\queue.ini", "left over\r\n");
    desk.instances.another = c.another;
    const std::string photo = desk.folder.File("My Photos\\a b.jpg");
    EXPECT_EQ(desk.Start(c.before + photo + c.after), c.expected);
    EXPECT_EQ(desk.Queue(), photo + "\r\n");
  }
}

TEST(StartProgram, EndsAtOnceWhenOnlyPresetsAreWantedAndThereAreNone) {
  for (const char* file : {"notes.txt", "look.twp.bak", "Look.TWP"}) {
    StartDesk desk;
    desk.folder.Write(std::string("program\\") + file, "");
    EXPECT_EQ(desk.Start(" \\A  "), file[0] == 'L' ? StartUp::kLoadMainWindow : StartUp::kEnd)
        << file;
    EXPECT_EQ(desk.Queue(), "");
  }
}

TEST(StartProgram, StartsAnewOnceToHaveItsManifestRead) {
  StartDesk desk;
  desk.first_start = true;
  const std::string photo = desk.folder.File("a.jpg");
  EXPECT_EQ(desk.Start(photo), StartUp::kRestart);
  EXPECT_EQ(desk.folder.Read("program\\Pocket.exe.manifest"), kManifestText);
  // The second start has no words and drops the photo.
  EXPECT_EQ(desk.Start(""), StartUp::kLoadMainWindow);
  EXPECT_EQ(desk.Queue(), "");
  EXPECT_EQ(desk.app.help_file, desk.folder.File("program\\Pocket.hlp"));
}

TEST(StartProgram, GoesOnInAFolderThatCannotBeWritten) {
  StartDesk desk(std::make_unique<FaultyFiles>());
  static_cast<FaultyFiles&>(*desk.files).before_write = [](const std::string& path) {
    return Status::Error(Failure::kNoAccess, path + ": may not be written");
  };
  desk.first_start = true;
  EXPECT_EQ(desk.Start(desk.folder.File("a.jpg")), StartUp::kLoadMainWindow);
  EXPECT_EQ(desk.dialogs.Told().size(), 1u);
}

}  // namespace
}  // namespace tarnwell
