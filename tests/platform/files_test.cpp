#include "platform/files.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <sstream>
#include <thread>

#include "platform/system.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

using Names = std::vector<std::string>;

class FilesTest : public testing::Test {
 protected:
  // A failure must say of which file it speaks, as the user spells it.
  void ExpectFails(const Status& status, Failure failure, const std::string& path) {
    EXPECT_EQ(status.failure, failure) << status.message;
    EXPECT_TRUE(status.message.starts_with(files->Display(path) + ": ")) << status.message;
  }

  TempFolder folder;
  std::unique_ptr<Files> files = MakeSystemFiles();
};

TEST_F(FilesTest, ReadsWhatWasReplaced) {
  const std::string bytes("\0\r\n\x1A\xFF text", 10);
  for (const char* name : {"plain.ini", "two words.ini", "\xD0\xBF\xE6\xBC\xA2\xC3\xA9.ini"}) {
    const std::string path = folder.File(name);
    EXPECT_TRUE(files->Replace(path, "something longer than what comes after").ok());
    EXPECT_TRUE(files->Replace(path, bytes).ok());
    const Result<std::string> read = files->Read(path);
    ASSERT_TRUE(read.ok()) << read.status.message;
    EXPECT_EQ(*read, bytes) << name;
    EXPECT_EQ(folder.Read(name), bytes);
  }
  EXPECT_EQ(folder.Names().size(), 3u) << "a temporary file was left";
}

TEST_F(FilesTest, ReadKeepsToItsLimit) {
  const std::string path = folder.Write("a", "12345");
  EXPECT_TRUE(files->Read(path, 5).ok());
  ExpectFails(files->Read(path, 4).status, Failure::kTooLarge, path);
  EXPECT_EQ(*files->Read(folder.Write("empty", ""), 0), "");
}

TEST_F(FilesTest, MissingThingsAreNotFound) {
  const std::string path = folder.File("missing");
  const std::string below = folder.File("missing\\a");
  ExpectFails(files->Read(path).status, Failure::kNotFound, path);
  ExpectFails(files->List(path).status, Failure::kNotFound, path);
  ExpectFails(files->Delete(path), Failure::kNotFound, path);
  ExpectFails(files->DeleteFolder(path), Failure::kNotFound, path);
  ExpectFails(files->Move(path, folder.File("b")), Failure::kNotFound, path);
  ExpectFails(files->Replace(below, "x"), Failure::kNotFound, below);
  ExpectFails(files->Append(below, "x"), Failure::kNotFound, below);
  ExpectFails(files->CreateFolder(below), Failure::kNotFound, below);
  EXPECT_EQ(folder.Names(), Names{});
}

TEST_F(FilesTest, FoldersAreNoFiles) {
  const std::string path = folder.MakeFolder("sub");
  folder.Write("sub\\a", "a");
  EXPECT_FALSE(files->Read(path).ok());
  EXPECT_FALSE(files->Replace(path, "x").ok());
  EXPECT_FALSE(files->Append(path, "x").ok());
  EXPECT_FALSE(files->Delete(path).ok());
  EXPECT_FALSE(files->DeleteFolder(path).ok()) << "it is not empty";
  EXPECT_EQ(folder.Names(), Names{"sub"});
  EXPECT_EQ(folder.Names("sub"), Names{"a"});
}

TEST_F(FilesTest, FoldersAreTheSameHoweverTheyAreSpelled) {
  const std::string sub = folder.MakeFolder("sub");
  folder.MakeFolder("other");
  folder.Write("file", "x");
  const struct {
    std::string other;
    bool same;
  } rows[] = {{sub, true},
              {sub + "\\", true},
              {folder.File("other\\..\\sub\\."), true},
              {folder.File("other"), false},
              {folder.File("missing"), false},
              {folder.File("file"), false}};
  for (const auto& row : rows)
    EXPECT_EQ(files->IsSameFolder(sub, row.other), row.same) << row.other;
  EXPECT_FALSE(files->IsSameFolder(folder.File("file"), folder.File("file")));
  EXPECT_FALSE(files->IsSameFolder(folder.File("missing"), folder.File("missing")));
}

TEST_F(FilesTest, FindsWhatListGives) {
  folder.Write("b.txt", "123");
  folder.MakeFolder("\xC3\xA9");
  const auto entries = files->List(folder.path());
  ASSERT_TRUE(entries.ok() && entries->size() == 2) << entries.status.message;
  for (const FolderEntry& entry : *entries) {
    const auto found = files->Find(folder.File(entry.name));
    ASSERT_TRUE(found.ok()) << found.status.message;
    EXPECT_EQ(found->name, entry.name);
    EXPECT_EQ(found->is_folder, entry.is_folder);
    EXPECT_EQ(found->size, entry.size);
    EXPECT_EQ(found->modified_nanos, entry.modified_nanos);
    EXPECT_TRUE(files->NameIsTaken(folder.File(entry.name)));
  }
  EXPECT_EQ(files->Find(folder.File("c")).status.failure, Failure::kNotFound);
  EXPECT_FALSE(files->NameIsTaken(folder.File("c")));
}

TEST_F(FilesTest, ListsFilesAndFolders) {
  folder.Write("b.txt", "123");
  folder.MakeFolder("\xC3\xA9");
  const auto entries = files->List(folder.path());
  ASSERT_TRUE(entries.ok()) << entries.status.message;
  std::map<std::string, FolderEntry> by_name;
  for (const FolderEntry& entry : *entries) by_name[entry.name] = entry;
  ASSERT_EQ(by_name.size(), 2u);
  EXPECT_EQ(by_name["b.txt"].size, 3u);
  EXPECT_FALSE(by_name["b.txt"].is_folder);
  EXPECT_TRUE(by_name["\xC3\xA9"].is_folder);
  EXPECT_EQ(by_name["\xC3\xA9"].size, 0u);
}

TEST_F(FilesTest, UpdateReplacesWhatItWasHanded) {
  const std::string path = folder.Write("a", "old");
  const auto becomes = [](std::optional<std::string> after) {
    return [after](std::string_view before) {
      EXPECT_EQ(before, "old");
      return after;
    };
  };
  EXPECT_TRUE(files->Update(path, becomes(std::nullopt)).ok());
  EXPECT_EQ(folder.Read("a"), "old");
  ExpectFails(files->Update(path, becomes("never"), 2), Failure::kTooLarge, path);
  EXPECT_EQ(folder.Read("a"), "old");
  EXPECT_TRUE(files->Update(path, becomes("new"), 3).ok());
  EXPECT_EQ(folder.Read("a"), "new");
  EXPECT_TRUE(files->Append(path, "er\r\n").ok());
  EXPECT_EQ(folder.Read("a"), "new\r\ner\r\n");
  EXPECT_EQ(folder.Names(), Names{"a"}) << "something was left beside it";

  const std::string missing = folder.File("missing");
  ExpectFails(files->Update(missing, becomes("never")), Failure::kNotFound, missing);
  EXPECT_EQ(folder.Names(), Names{"a"}) << "a file was made";
}

TEST_F(FilesTest, WhatIsAppendedStartsOnALineOfItsOwn) {
  const struct {
    const char* before;
    const char* after;
  } kCases[] = {{"", "x\r\n"},
                {"1\r\n", "1\r\nx\r\n"},
                {"1\n", "1\nx\r\n"},
                {"1\r\n2", "1\r\n2\r\nx\r\n"},
                {"1\r", "1\r\nx\r\n"}};
  for (const auto& c : kCases) {
    const std::string path = folder.Write("a", c.before);
    EXPECT_TRUE(files->Append(path, "x\r\n").ok());
    EXPECT_EQ(folder.Read("a"), c.after);
  }
}

// Many writers append lines while the first lines are taken out again and again, as a trim does.
// Lines taken and lines left are every line, each whole and once, those of a writer in its order.
TEST_F(FilesTest, AppendsFromManyHandsLoseAndMixNothing) {
  constexpr int kWriters = 8, kLines = 25;
  const std::string path = folder.Write("Smart Data.tsd", "");
  const auto line_of = [](int writer, int line) {
    return std::string(150, static_cast<char>('a' + writer)) + std::to_string(line) + "\r\n";
  };
  std::atomic<int> at_work = kWriters;
  std::vector<std::thread> writers;
  for (int writer = 0; writer < kWriters; ++writer) {
    writers.emplace_back([&, writer] {
      const std::unique_ptr<Files> own = MakeSystemFiles();
      for (int line = 0; line < kLines; ++line) {
        EXPECT_TRUE(own->Append(path, line_of(writer, line)).ok());
      }
      --at_work;
    });
  }
  std::string lines;
  while (at_work > 0) {
    EXPECT_TRUE(files
                    ->Update(path,
                             [&](std::string_view text) {
                               const std::size_t taken =
                                   text.substr(0, text.size() / 2).rfind('\n') + 1;
                               lines += text.substr(0, taken);
                               return std::optional<std::string>(text.substr(taken));
                             })
                    .ok());
  }
  for (std::thread& writer : writers) writer.join();
  std::istringstream all(lines + folder.Read("Smart Data.tsd"));
  int next[kWriters] = {};
  for (std::string line; std::getline(all, line);) {
    const int writer = line.front() - 'a';
    ASSERT_TRUE(writer >= 0 && writer < kWriters) << line;
    ASSERT_EQ(line + "\n", line_of(writer, next[writer]++));
  }
  for (const int count : next) EXPECT_EQ(count, kLines);
}

TEST_F(FilesTest, PublishGivesTheNameAndReplacesNothing) {
  const std::string path = folder.File("photoA.jpg");
  const std::string temporary = files->TemporaryBeside(path);
  const std::string name = temporary.substr(folder.path().size() + 1);

  folder.Write(name, "new");
  EXPECT_TRUE(files->Publish(temporary, path).ok());
  EXPECT_EQ(folder.Names(), Names{"photoA.jpg"});
  EXPECT_EQ(folder.Read("photoA.jpg"), "new");

  folder.Write(name, "newer");
  ExpectFails(files->Publish(temporary, path), Failure::kExists, path);
  EXPECT_EQ(folder.Names(), Names{"photoA.jpg"}) << "the temporary file goes";
  EXPECT_EQ(folder.Read("photoA.jpg"), "new");

  folder.Write(name, "newest");
  EXPECT_EQ(files->Publish(temporary, folder.File("no\\b.jpg")).failure, Failure::kNotFound);
  EXPECT_EQ(folder.Names(), Names{"photoA.jpg"});
}

TEST_F(FilesTest, MoveReplacesNothing) {
  const std::string a = folder.Write("a", "from a");
  const std::string b = folder.Write("b", "from b");
  ExpectFails(files->Move(a, b), Failure::kExists, b);
  EXPECT_EQ(folder.Read("a"), "from a");
  EXPECT_EQ(folder.Read("b"), "from b");

  folder.MakeFolder("done");
  EXPECT_TRUE(files->Move(a, folder.File("done\\a")).ok());
  EXPECT_EQ(folder.Names(), (Names{"b", "done"}));
  EXPECT_EQ(folder.Read("done\\a"), "from a");

  EXPECT_FALSE(files->Move(b, folder.File("done")).ok()) << "a folder has that name";
  EXPECT_EQ(folder.Read("b"), "from b");
}

TEST_F(FilesTest, AbsolutePathsComeBackAndOthersStartAtTheCurrentFolder) {
  EXPECT_EQ(files->Absolute(folder.File("a.b.jpg")), folder.File("a.b.jpg"));
  const std::string absolute = files->Absolute("sub\\a.jpg");
  EXPECT_TRUE(absolute.ends_with("\\sub\\a.jpg")) << absolute;
  EXPECT_GT(absolute.size(), std::string("\\sub\\a.jpg").size());
  EXPECT_EQ(files->Absolute(absolute), absolute);
  EXPECT_EQ(files->Absolute("sub/a.jpg"), absolute);
}

}  // namespace
}  // namespace tarnwell
