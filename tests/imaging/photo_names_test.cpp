#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "imaging/output_names.h"
#include "imaging/photo_list.h"
#include "platform/files.h"
#include "platform/system.h"
#include "tests/support/faulty_files.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

// Knows which paths are taken, and nothing else.
class TakenPaths : public FaultyFiles {
 public:
  std::set<std::string> files;
  std::set<std::string> folders;

  bool NameIsTaken(const std::string& path) override {
    return files.contains(path) || folders.contains(path);
  }
};

using Strings = std::vector<std::string>;

// "imgA.jpg" and so on, up to the letter `last`.
Strings Letters(char last) {
  Strings names;
  for (char letter = 'A'; letter <= last; ++letter) names.push_back({'i', 'm', 'g', letter});
  for (std::string& name : names) name += ".jpg";
  return names;
}

TEST(BuildOutputNamesTest, OffersTheFirstFreeNameOfEachKind) {
  const struct {
    const char* photo;
    Strings taken;
    Strings offered;  // without "Other (prompt)..."
  } kRows[] = {
      {"img.jpg", {"img.jpg"}, {"imgA.jpg", "img-01.jpg", "img [adjusted].jpg"}},
      {"img.jpg", {"imgA.jpg", "imgC.jpg"}, {"imgB.jpg", "img-01.jpg", "img [adjusted].jpg"}},
      {"img.jpg", Letters('Y'), {"imgZ.jpg", "img-01.jpg", "img [adjusted].jpg"}},
      {"img.jpg", Letters('Z'), {"imgZ.jpg", "img-01.jpg", "img [adjusted].jpg"}},
      {"img.jpg",
       {"img-01.jpg", "img-02.jpg", "img [adjusted].jpg", "img [adjusted 1].jpg"},
       {"imgA.jpg", "img-03.jpg", "img [adjusted 2].jpg"}},
      {"a.b.jpg", {}, {"aA.jpg", "a-01.jpg", "a [adjusted].jpg"}},
      {"scan", {}, {"scanA", "scan-01", "scan [adjusted]"}},
      {"Лето.bmp", {}, {"ЛетоA.bmp", "Лето-01.bmp", "Лето [adjusted].bmp"}},
  };
  const std::string folder = "C:\\Дача\\";
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.offered[0]);
    TakenPaths files;
    for (const std::string& name : row.taken) files.files.insert(folder + name);
    OutputNames names;
    BuildOutputNames(names, folder + row.photo, files);

    Strings entries, paths;
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
  files.folders.insert("C:\\P\\imgA.jpg");
  BuildOutputNames(names, "C:\\P\\img.jpg", files);
  EXPECT_EQ(names.entries, (Strings{"…/imgB.jpg", "Other (prompt)..."}));
}

TEST(IsPhotoNameTest, TakesFourExtensionsInAnyCase) {
  for (const char* name : {"a.bmp", "a.jpeg", "a.JPG", "a.Gif", "a.b.jpg", ".jpg", "Лето.JPEG"}) {
    EXPECT_TRUE(IsPhotoName(name)) << name;
  }
  for (const char* name : {"", "a", "jpg", "a.jpg.txt", "a.png", "a.jpg ", "a.jpe"}) {
    EXPECT_FALSE(IsPhotoName(name)) << name;
  }
}

TEST(ListPhotosTest, SortsByNameIgnoringCaseAndLeavesFoldersOut) {
  TempFolder folder;
  for (const char* name : {"b.JPG", "C.bmp", "a.gif", "B2.jpeg", "notes.txt", "Ж.jpg"}) {
    folder.Write(name, "x");
  }
  folder.MakeFolder("album.jpg");
  const std::unique_ptr<Files> files = MakeSystemFiles();
  const auto photos = ListPhotos(*files, folder.path());
  ASSERT_TRUE(photos.ok()) << photos.status.message;
  EXPECT_EQ(*photos, (std::vector<std::string>{"a.gif", "b.JPG", "B2.jpeg", "C.bmp", "Ж.jpg"}));
}

}  // namespace
}  // namespace tarnwell
