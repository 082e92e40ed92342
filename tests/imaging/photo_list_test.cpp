#include "imaging/photo_list.h"

#include <gtest/gtest.h>
#include <memory>

#include "platform/files.h"
#include "platform/system.h"
#include "tests/support/temp_folder.h"

namespace tarnwell {
namespace {

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

TEST(ListPhotosTest, AMissingFolderIsAFailure) {
  TempFolder folder;
  const std::unique_ptr<Files> files = MakeSystemFiles();
  EXPECT_EQ(ListPhotos(*files, folder.File("none")).status.failure, Failure::kNotFound);
}

}  // namespace
}  // namespace tarnwell
