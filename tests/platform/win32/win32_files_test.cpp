#include "platform/win32/win32_files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/system.h"
#include "platform/win32/utf16.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

// Opens a file as another program does that shares nothing.
class HeldFile {
 public:
  explicit HeldFile(const std::string& path)
      : handle_(CreateFileW(Utf8ToWide(path)->c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0,
                            nullptr)) {
    EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
  }
  ~HeldFile() { CloseHandle(handle_); }

 private:
  HANDLE handle_;
};

class Win32FilesTest : public testing::Test {
 protected:
  TempFolder folder;
  Win32Files files;
};

TEST_F(Win32FilesTest, PathsMayBeLongerThanTheOldLimit) {
  std::vector<std::string> folders = {folder.path()};
  while (folders.back().size() < 300) {
    folders.push_back(folders.back() + "\\" + std::string(60, 'd'));
    ASSERT_TRUE(files.CreateFolder(folders.back()).ok());
  }
  const std::string path = folders.back() + "\\photo.jpg";
  ASSERT_TRUE(files.Replace(path, "a\n").ok());
  ASSERT_TRUE(files.Append(path, "b").ok());
  EXPECT_EQ(*files.Read(path, 10), "a\nb");
  EXPECT_EQ(files.List(folders.back())->size(), 1u);
  ASSERT_TRUE(files.Move(path, path + "2").ok());
  EXPECT_TRUE(files.Delete(path + "2").ok());
  for (; folders.size() > 1; folders.pop_back()) {
    EXPECT_TRUE(files.FolderExists(folders.back()));
    EXPECT_TRUE(files.DeleteFolder(folders.back()).ok());
  }
}

TEST_F(Win32FilesTest, NamesOfDevicesAndBrokenTextAreNoFiles) {
  const std::string present = folder.Write("a", "a");
  for (const std::string& name : {std::string("NUL"), std::string("con.jpg"), std::string("\xFF"),
                                  std::string("a:stream"), std::string("a\0b", 3)}) {
    const std::string path = folder.File(name);
    EXPECT_FALSE(files.FileExists(path)) << name;
    EXPECT_EQ(files.Read(path, 10).status.failure, Failure::kNotFound) << name;
    EXPECT_EQ(files.Replace(path, "x").failure, Failure::kOther) << name;
    EXPECT_EQ(files.Append(path, "x").failure, Failure::kOther) << name;
    EXPECT_EQ(files.Move(present, path).failure, Failure::kOther) << name;
    EXPECT_EQ(files.CreateFolder(path).failure, Failure::kOther) << name;
  }
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a"});
}

TEST_F(Win32FilesTest, AFileThatAnotherProgramHoldsIsInUse) {
  const std::string path = folder.Write("a.jpg", "old");
  const HeldFile held(path);
  const Status kOutcomes[] = {files.Read(path, 10).status, files.Append(path, "x"),
                              files.Delete(path), files.Move(path, folder.File("b.jpg"))};
  for (const Status& status : kOutcomes) {
    EXPECT_EQ(status.failure, Failure::kNoAccess) << status.message;
    EXPECT_EQ(status.message, path + ": in use by another program");
  }
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"a.jpg"});
}

TEST_F(Win32FilesTest, AFileThatIsBeingWrittenIsNotRead) {
  const std::string path = folder.Write("a.jpg", "half");
  const HANDLE writer = CreateFileW(Utf8ToWide(path)->c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_EQ(files.Read(path, 10).status.failure, Failure::kNoAccess);
  CloseHandle(writer);
  EXPECT_TRUE(files.Read(path, 10).ok());
}

// A folder on another volume than the temporary folder, where this machine has one.
std::string FolderOnAnotherVolume() {
  const std::string candidate = "Z:\\dev\\shm";
  return Win32Files().FolderExists(candidate) ? candidate : "";
}

TEST_F(Win32FilesTest, MovesToAnotherVolumeByCopying) {
  const std::string other = FolderOnAnotherVolume();
  if (other.empty()) GTEST_SKIP() << "no second volume here";
  const std::string from = folder.Write("a.jpg", "photo");
  const std::string to = files.TemporaryBeside(other + "\\a.jpg");
  const std::size_t before = files.List(other)->size();
  ASSERT_TRUE(files.Move(from, to).ok());
  EXPECT_EQ(*files.Read(to, 10), "photo");
  EXPECT_FALSE(files.FileExists(from));
  EXPECT_EQ(files.List(other)->size(), before + 1) << "only the photo";

  EXPECT_EQ(files.Move(folder.Write("b.jpg", "b"), to).failure, Failure::kExists);
  EXPECT_TRUE(folder.Holds("b.jpg"));
  EXPECT_EQ(*files.Read(to, 10), "photo");
  EXPECT_TRUE(files.Delete(to).ok());
}

}  // namespace
}  // namespace tarnwell
