#include "platform/posix/posix_files.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/posix/posix_picture_codec.h"
#include "platform/system.h"
#include "tests/platform/posix/faulty_calls.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

using Names = std::vector<std::string>;

struct PosixFilesTest : testing::Test {
  TempFolder folder;
  std::unique_ptr<Files> system_files = MakeSystemFiles();
  Files& files = *system_files;
};

// A file name that holds a backslash, made past the program's own spelling.
void WriteWithBackslash(const TempFolder& folder, const char* name) {
  const std::string path = folder.SystemPath().string() + "/" + name;
  const int file = open(path.c_str(), O_WRONLY | O_CREAT, 0666);
  ASSERT_GE(file, 0);
  ASSERT_EQ(write(file, "secret", 6), 6);
  close(file);
}

TEST_F(PosixFilesTest, NamesWithABackslashAreRefusedWithTheNameAsTheUserKnowsIt) {
  WriteWithBackslash(folder, "a\\b.jpg");
  folder.Write("a\\b.jpg", "the file b.jpg in the folder a");
  const std::string word = folder.SystemPath().string() + "/a\\b.jpg";

  const std::string path = files.Absolute(word);
  EXPECT_EQ(files.Display(path), word);
  EXPECT_FALSE(files.FileExists(path));
  for (const Status& status :
       {files.Read(path).status, files.Replace(path, "x"), files.Append(path, "x"),
        files.Delete(path), files.Move(path, folder.File("c")), files.Publish(path, path),
        files.CreateFolder(path), MakeSystemPictureCodec()->Load(path).status}) {
    EXPECT_EQ(status.failure, Failure::kUnsupported);
    EXPECT_EQ(status.message,
              word + ": names that contain a backslash cannot be used; rename it first");
  }
  EXPECT_EQ(folder.Read("a\\b.jpg"), "the file b.jpg in the folder a") << "the wrong file";
  const auto entries = files.List(folder.path());
  std::set<std::string> listed;
  for (const FolderEntry& entry : *entries) {
    listed.insert(files.Display(folder.File(entry.name)));
  }
  EXPECT_EQ(listed, (std::set{files.Display(folder.File("a")), word}));
}

TEST_F(PosixFilesTest, AbsoluteLeavesIdlePartsOut) {
  const std::string here = files.Absolute("a.jpg");
  EXPECT_EQ(files.Absolute("./a.jpg"), here);
  EXPECT_EQ(files.Absolute(".//./a.jpg"), here);
  EXPECT_EQ(files.Absolute("/home/me/a.jpg"), "\\home\\me\\a.jpg");
  EXPECT_EQ(files.Absolute("/home//./me/"), "\\home\\me\\");
  // Out of the folder that a link leads to, not out of the one that holds it.
  folder.MakeFolder("there\\deep");
  std::filesystem::create_symlink("there/deep", folder.SystemPath("link"));
  const std::string base = folder.SystemPath().string();
  EXPECT_EQ(files.Absolute(base + "/there/deep/../a.jpg"), folder.File("there\\a.jpg"));
  EXPECT_EQ(files.Absolute(base + "/link/../a.jpg"), folder.File("there\\a.jpg"));
  EXPECT_EQ(files.Absolute(base + "/gone/../a.jpg"), folder.File("gone\\..\\a.jpg"));
  EXPECT_EQ(files.Absolute("."), here.substr(0, here.size() - 6));
  EXPECT_EQ(files.Absolute(""), "");
}

TEST_F(PosixFilesTest, PipesAreNeitherFilesNorWaitedFor) {
  const std::string pipe = folder.File("pipe.jpg");
  ASSERT_EQ(mkfifo(folder.SystemPath("pipe.jpg").c_str(), 0666), 0);
  EXPECT_FALSE(files.FileExists(pipe));
  EXPECT_FALSE(files.Read(pipe).ok());
  EXPECT_FALSE(files.Append(pipe, "x").ok());
  EXPECT_FALSE(files.Replace(pipe, "x").ok());
  EXPECT_FALSE(MakeSystemPictureCodec()->Load(pipe).ok());
  EXPECT_EQ(files.Read("\\dev\\zero").status.message, "/dev/zero: is not a file");
  EXPECT_TRUE(files.List(folder.path())->empty());
  EXPECT_TRUE(folder.Holds("pipe.jpg"));
}

TEST_F(PosixFilesTest, LinksAreWrittenThroughAndRightsKept) {
  folder.Write("kept\\real.ini", "old");
  ASSERT_EQ(chmod(folder.SystemPath("kept\\real.ini").c_str(), 0640), 0);
  std::filesystem::create_symlink("kept/real.ini", folder.SystemPath("link.ini"));
  ASSERT_TRUE(files.Replace(folder.File("link.ini"), "new").ok());
  EXPECT_TRUE(std::filesystem::is_symlink(folder.SystemPath("link.ini")));
  EXPECT_EQ(folder.Read("kept\\real.ini"), "new");
  struct stat found;
  ASSERT_EQ(stat(folder.SystemPath("kept\\real.ini").c_str(), &found), 0);
  EXPECT_EQ(found.st_mode & 0777, 0640u);
  EXPECT_EQ(folder.Names("kept"), Names{"real.ini"});
}

// While it lives, no file may grow past `most_bytes`: a disk that fills up in the middle of a
// write.
class FullDisk {
 public:
  explicit FullDisk(rlim_t most_bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{most_bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit before_;
  void (*signal_)(int);
};

TEST_F(PosixFilesTest, LinksTakeNamesAndAreTheFolderThatTheyLeadTo) {
  folder.MakeFolder("sub");
  std::filesystem::create_symlink("nowhere", folder.SystemPath("dead"));
  std::filesystem::create_directory_symlink("sub", folder.SystemPath("link"));
  EXPECT_TRUE(files.NameIsTaken(folder.File("dead")));
  EXPECT_FALSE(files.FileExists(folder.File("dead")));
  EXPECT_TRUE(files.IsSameFolder(folder.File("link\\"), folder.File("sub")));
}

TEST_F(PosixFilesTest, AWriteThatFailsHalfwayLeavesTheOldContent) {
  const std::string path = folder.Write("a.tsd", std::string(3000, 'o'));
  const std::string much(5000, 'n');
  const PixelArray pixels(40, 40);
  Status appended, replaced, saved;
  {
    FullDisk full(4096);
    appended = files.Append(path, much);
    replaced = files.Replace(path, much);
    saved = MakeSystemPictureCodec()->SaveBitmap(folder.File("a.bmp"), pixels.view());
  }
  for (const Status& status : {appended, replaced}) {
    EXPECT_FALSE(status.ok());
    EXPECT_TRUE(status.message.starts_with(files.Display(path) + ": ")) << status.message;
  }
  EXPECT_FALSE(saved.ok());
  EXPECT_EQ(folder.Read("a.tsd"), std::string(3000, 'o'));
  EXPECT_EQ(folder.Names(), Names{"a.tsd"});
}

// Linux mounts a second volume there; without it there is nothing to test.
class OtherVolume {
 public:
  OtherVolume() {
    char name[] = "/dev/shm/tarnwell-test-XXXXXX";
    const char* made = mkdtemp(name);
    if (made != nullptr) folder_ = made;
  }
  ~OtherVolume() {
    std::error_code ignored;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
  }
  bool DiffersFrom(const TempFolder& folder) const {
    struct stat here, there;
    return !folder_.empty() && stat(folder_.c_str(), &here) == 0 &&
           stat(folder.SystemPath().c_str(), &there) == 0 && here.st_dev != there.st_dev;
  }
  std::string File(const std::string& name) const {
    return PosixFiles().Absolute(folder_ + "/" + name);
  }

 private:
  std::string folder_;
};

TEST_F(PosixFilesTest, MovesToAnotherVolumeByCopying) {
  OtherVolume other;
  if (!other.DiffersFrom(folder)) GTEST_SKIP() << "there is no second volume";
  const std::string bytes(3'000'000, 'p');
  const std::string from = folder.Write("a.jpg", bytes);
  const auto modified = files.List(folder.path())->front().modified_nanos;

  ASSERT_TRUE(files.Move(from, other.File("a.jpg")).ok());
  EXPECT_EQ(folder.Names(), Names{});
  EXPECT_EQ(*files.Read(other.File("a.jpg")), bytes);
  const auto moved = files.List(other.File(""));
  ASSERT_EQ(moved->size(), 1u) << "a temporary file was left";
  EXPECT_EQ(moved->front().modified_nanos, modified);

  folder.Write("a.jpg", "another");
  EXPECT_EQ(files.Move(from, other.File("a.jpg")).failure, Failure::kExists);
  EXPECT_EQ(folder.Read("a.jpg"), "another");
  EXPECT_EQ(files.List(other.File(""))->size(), 1u);
}

TEST_F(PosixFilesTest, AMovedLinkLeadsToTheSameFile) {
  for (const char* name : {"in", "real", "done"}) folder.MakeFolder(name);
  folder.Write("real\\a.jpg", "photo");
  std::filesystem::create_symlink("../real/a.jpg", folder.SystemPath("in\\a.jpg"));
  folder.Write("done\\a.jpg", "mine");
  EXPECT_EQ(files.Move(folder.File("in\\a.jpg"), folder.File("done\\a.jpg")).failure,
            Failure::kExists);
  EXPECT_EQ(folder.Read("in\\a.jpg"), "photo");
  ASSERT_TRUE(files.Move(folder.File("in\\a.jpg"), folder.File("done\\b.jpg")).ok());
  EXPECT_EQ(folder.Read("done\\b.jpg"), "photo");
  EXPECT_EQ(folder.Read("done\\a.jpg") + folder.Read("real\\a.jpg"), "minephoto");
  EXPECT_EQ(folder.Names("in"), Names{});
}

// A large photo is on its way to another volume for seconds.
TEST_F(PosixFilesTest, ASourceThatIsExchangedDuringItsMoveStays) {
  folder.MakeFolder("done");
  const std::string a = folder.SystemPath("a.jpg").string();
  const struct {
    const char* name;
    std::function<void()> meanwhile;
    const char* source;  // what it is afterwards; null: gone
    Names moved;
  } kRows[] = {
      {"exchanged", [&] { rename(folder.SystemPath("b.jpg").c_str(), a.c_str()); }, "new", {}},
      {"written anew", [&] { folder.Write("a.jpg", "NEW"); }, "NEW", {}},
      {"deleted", [&] { unlink(a.c_str()); }, nullptr, {"a.jpg"}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    const std::string from = folder.Write("a.jpg", "old");
    folder.Write("b.jpg", "new");
    const timespec long_ago[2] = {{1, 0}, {1, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, a.c_str(), long_ago, 0), 0);
    Status moved;
    {
      bool due = true;
      const FaultyCalls calls(folder.SystemPath("").string(), Fault::kNone, 0,
                              {.folders_are_volumes = true, .on_flush = [&] {
                                 if (std::exchange(due, false)) row.meanwhile();
                               }});
      moved = files.Move(from, folder.File("done\\a.jpg"));
    }
    EXPECT_EQ(moved.ok(), row.source == nullptr) << moved.message;
    EXPECT_EQ(folder.Names("done"), row.moved);
    EXPECT_EQ(folder.Holds("a.jpg") ? folder.Read("a.jpg") : "gone",
              row.source ? row.source : "gone");
  }
  EXPECT_EQ(folder.Read("done\\a.jpg"), "old") << "the only one that is left";
}

}  // namespace
}  // namespace tarnwell
