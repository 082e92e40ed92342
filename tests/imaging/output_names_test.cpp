#include "imaging/output_names.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/forwarding_files.h"

namespace tarnwell {
namespace {

// Knows which paths are taken, and nothing else.
class TakenPaths : public ForwardingFiles {
 public:
  std::set<std::string> files;
  std::set<std::string> folders;

  TakenPaths() : ForwardingFiles(nullptr) {}
  bool FileExists(const std::string& path) override { return files.contains(path); }
  bool FolderExists(const std::string& path) override { return folders.contains(path); }
};

using Strings = std::vector<std::string>;

TEST(SplitPhotoPathTest, BaseEndsAtTheFirstDotAndExtensionStartsAtTheLast) {
  const struct {
    const char* path;
    const char* folder;
    const char* file_name;
    const char* base;
    const char* extension;
  } kRows[] = {
      {"C:\\P\\img.jpg", "C:\\P\\", "img.jpg", "img", ".jpg"},
      {"C:\\P\\my.holiday.jpg", "C:\\P\\", "my.holiday.jpg", "my", ".jpg"},
      {"C:\\P\\img", "C:\\P\\", "img", "img", ""},
      {"C:\\P\\.jpg", "C:\\P\\", ".jpg", "", ".jpg"},
      {"C:\\P\\img.", "C:\\P\\", "img.", "img", "."},
      {"C:\\Old.Photos\\img.JPG", "C:\\Old.Photos\\", "img.JPG", "img", ".JPG"},
      // The extension is looked for in the whole path.
      {"C:\\Old.Photos\\img", "C:\\Old.Photos\\", "img", "img", ".Photos\\img"},
      {"C:\\Дача\\Лето.2024.jpg", "C:\\Дача\\", "Лето.2024.jpg", "Лето", ".jpg"},
      {"img.jpg", "\\", "img.jpg", "img", ".jpg"},
      {"", "\\", "", "", ""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.path);
    const PhotoPathParts parts = SplitPhotoPath(row.path);
    EXPECT_EQ(parts.folder, row.folder);
    EXPECT_EQ(parts.file_name, row.file_name);
    EXPECT_EQ(parts.base, row.base);
    EXPECT_EQ(parts.extension, row.extension);
  }
}

Strings Letters(char first, char last) {
  Strings paths;
  for (char letter = first; letter <= last; ++letter) {
    paths.push_back(std::string("C:\\P\\img") + letter + ".jpg");
  }
  return paths;
}

TEST(BuildOutputNamesTest, OffersTheFirstFreeNameOfEachKind) {
  const struct {
    const char* name;
    const char* photo;
    Strings taken;
    Strings offered;  // without "Other (prompt)..."
  } kRows[] = {
      {"nothing taken",
       "C:\\P\\img.jpg",
       {"C:\\P\\img.jpg"},
       {"imgA.jpg", "img-01.jpg", "img [adjusted].jpg"}},
      {"two letters taken",
       "C:\\P\\img.jpg",
       {"C:\\P\\imgA.jpg", "C:\\P\\imgB.jpg"},
       {"imgC.jpg", "img-01.jpg", "img [adjusted].jpg"}},
      {"a gap is filled",
       "C:\\P\\img.jpg",
       {"C:\\P\\imgA.jpg", "C:\\P\\imgC.jpg"},
       {"imgB.jpg", "img-01.jpg", "img [adjusted].jpg"}},
      {"only Z free",
       "C:\\P\\img.jpg",
       Letters('A', 'Y'),
       {"imgZ.jpg", "img-01.jpg", "img [adjusted].jpg"}},
      {"all letters taken",
       "C:\\P\\img.jpg",
       Letters('A', 'Z'),
       {"imgZ.jpg", "img-01.jpg", "img [adjusted].jpg"}},
      {"numbers and adjusted taken",
       "C:\\P\\img.jpg",
       {"C:\\P\\img-01.jpg", "C:\\P\\img-02.jpg", "C:\\P\\img [adjusted].jpg",
        "C:\\P\\img [adjusted 1].jpg"},
       {"imgA.jpg", "img-03.jpg", "img [adjusted 2].jpg"}},
      {"two dots", "C:\\P\\a.b.jpg", {}, {"aA.jpg", "a-01.jpg", "a [adjusted].jpg"}},
      {"no dot", "C:\\P\\scan", {}, {"scanA", "scan-01", "scan [adjusted]"}},
      {"other scripts",
       "C:\\Дача\\Лето.bmp",
       {},
       {"ЛетоA.bmp", "Лето-01.bmp", "Лето [adjusted].bmp"}},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    TakenPaths files;
    files.files = {row.taken.begin(), row.taken.end()};
    OutputNames names;
    BuildOutputNames(names, row.photo, files);

    Strings entries;
    Strings paths;
    const std::string folder = SplitPhotoPath(row.photo).folder;
    for (const std::string& name : row.offered) {
      entries.push_back("…/" + name);
      paths.push_back(folder + name);
    }
    entries.push_back("Other (prompt)...");
    paths.push_back("Other (prompt)...");
    EXPECT_EQ(names.entries, entries);
    EXPECT_EQ(names.paths, paths);
    EXPECT_EQ(names.output_path, paths[0]);
    EXPECT_EQ(names.shown, entries[0]);
  }
}

TEST(BuildOutputNamesTest, KindsWithoutAFreeNameAreLeftOut) {
  TakenPaths files;
  for (int n = 1; n <= 99; ++n) {
    files.files.insert("C:\\P\\img-" + std::string(n < 10 ? "0" : "") + std::to_string(n) + ".jpg");
    files.files.insert("C:\\P\\img [adjusted " + std::to_string(n) + "].jpg");
  }
  OutputNames names;
  BuildOutputNames(names, "C:\\P\\img.jpg", files);
  EXPECT_EQ(names.entries, (Strings{"…/imgA.jpg", "…/img [adjusted].jpg", "Other (prompt)..."}));
  files.files.insert("C:\\P\\img [adjusted].jpg");
  BuildOutputNames(names, "C:\\P\\img.jpg", files);
  EXPECT_EQ(names.entries, (Strings{"…/imgA.jpg", "Other (prompt)..."}));
}

TEST(BuildOutputNamesTest, AFolderTakesANameToo) {
  TakenPaths files;
  files.folders.insert("C:\\P\\imgA.jpg");
  OutputNames names;
  BuildOutputNames(names, "C:\\P\\img.jpg", files);
  EXPECT_EQ(names.output_path, "C:\\P\\imgB.jpg");
}

TEST(BuildOutputNamesTest, OtherStaysChosenFromPhotoToPhoto) {
  TakenPaths files;
  OutputNames names;
  BuildOutputNames(names, "C:\\P\\one.jpg", files);
  ChooseOutputName(names, 3);
  EXPECT_EQ(names.output_path, "Other (prompt)...");
  for (const char* photo : {"C:\\P\\two.jpg", "C:\\P\\three.jpg"}) {
    BuildOutputNames(names, photo, files);
    EXPECT_EQ(names.output_path, "");
    EXPECT_EQ(names.shown, "Other (prompt)...");
    EXPECT_EQ(names.entries.size(), 4u);
  }
  ChooseOutputName(names, 1);
  EXPECT_EQ(names.output_path, "C:\\P\\three-01.jpg");
  EXPECT_EQ(names.shown, "…/three-01.jpg");
  BuildOutputNames(names, "C:\\P\\four.jpg", files);
  EXPECT_EQ(names.output_path, "C:\\P\\fourA.jpg");
}

TEST(BuildOutputNamesTest, WithoutAPhotoOnlyThePromptRemainsAndIsNoChoice) {
  TakenPaths files;
  OutputNames names;
  BuildOutputNames(names, "", files);
  EXPECT_EQ(names.entries, Strings{"Other (prompt)..."});
  EXPECT_EQ(names.output_path, "");
  EXPECT_EQ(names.shown, "Other (prompt)...");
  BuildOutputNames(names, "C:\\P\\img.jpg", files);
  EXPECT_EQ(names.output_path, "C:\\P\\imgA.jpg");
}

}  // namespace
}  // namespace tarnwell
