#include "shell/start_up.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "platform/instances.h"
#include "shell/manifest.h"
#include "tests/support/forwarding_files.h"
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

TEST(StartProgram, PointsAtTheFilesBesideTheExecutable) {
  StartDesk desk;
  EXPECT_EQ(desk.Start(""), StartUp::kLoadMainWindow);
  EXPECT_EQ(desk.app.program_folder, desk.folder.File("program\\"));
  EXPECT_EQ(desk.app.help_file, desk.folder.File("program\\Pocket.hlp"));
}

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

TEST(StartProgram, MakesTheQueuedPathAbsolute) {
  StartDesk desk;
  desk.Start("photo.jpg");
  EXPECT_EQ(desk.Queue(), desk.files->Absolute("photo.jpg") + "\r\n");
}

TEST(StartProgram, QueuesNothingWithoutAPath) {
  for (const char* words : {"", "   ", "\"", "\"\""}) {
    StartDesk desk;
    desk.folder.Write("program\\queue.ini", "left over\r\n");
    desk.instances.another = true;
    EXPECT_EQ(desk.Start(words), StartUp::kLoadMainWindow) << words;
    EXPECT_FALSE(desk.folder.Holds("program\\queue.ini")) << words;
  }
}

TEST(StartProgram, EndsAtOnceWhenOnlyPresetsAreWantedAndThereAreNone) {
  struct Case {
    const char* words;
    const char* file;
    StartUp expected;
  };
  const Case cases[] = {
      {"\\a", "notes.txt", StartUp::kEnd},
      {" \\A  ", "look.twp.bak", StartUp::kEnd},
      {"\\a", "look.twp", StartUp::kLoadMainWindow},
      {"\\A", "Look.TWP", StartUp::kLoadMainWindow},
  };
  for (const Case& c : cases) {
    StartDesk desk;
    desk.folder.Write(std::string("program\\") + c.file, "");
    EXPECT_EQ(desk.Start(c.words), c.expected) << c.words << ' ' << c.file;
    EXPECT_FALSE(desk.folder.Holds("program\\queue.ini"));
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
}

TEST(StartProgram, LeavesAForeignManifestAlone) {
  StartDesk desk;
  EXPECT_EQ(desk.Start(""), StartUp::kLoadMainWindow);
  EXPECT_EQ(desk.folder.Read("program\\Pocket.exe.manifest"), "mine");
}

class ReadOnlyFiles : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  Status Replace(const std::string& path, std::string_view) override { return Refused(path); }
  Status Append(const std::string& path, std::string_view) override { return Refused(path); }

 private:
  static Status Refused(const std::string& path) {
    return Status::Error(Failure::kNoAccess, path + ": may not be written");
  }
};

TEST(StartProgram, GoesOnInAFolderThatCannotBeWritten) {
  StartDesk desk(std::make_unique<ReadOnlyFiles>(MakeSystemFiles()));
  desk.first_start = true;
  EXPECT_EQ(desk.Start(desk.folder.File("a.jpg")), StartUp::kLoadMainWindow);
  EXPECT_EQ(desk.dialogs.Told().size(), 1u);
}

TEST(Manifest, IsAsTheSystemExpectsIt) {
  const std::string text(kManifestText);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(text.begin(), text.end(), '\r'));
  EXPECT_TRUE(text.ends_with("</assembly>\r\n\r\n"));
  EXPECT_TRUE(
      text.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"));
  for (const char* line :
       {"\r\n    <description>XP Style</description>\r\n", "\r\n        <dependentAssembly>\r\n",
        "\r\n            <assemblyIdentity type=\"win32\"", " name=\"WinXp\" ",
        " publicKeyToken=\"6595b64144ccf1df\" "}) {
    EXPECT_NE(text.find(line), std::string::npos) << line;
  }
}

}  // namespace
}  // namespace tarnwell
