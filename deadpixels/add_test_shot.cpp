#include "deadpixels/add_test_shot.h"

#include <set>
#include <utility>

#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

// A folder that this command needs. One that was made for nothing goes again.
class NeededFolder {
 public:
  NeededFolder(Files& files, std::string path) : files_(files), path_(std::move(path)) {
    if (files_.FolderExists(path_)) return;
    status_ = files_.CreateFolder(path_);
    made_ = status_.ok();
    if (status_.failure == Failure::kExists && files_.FolderExists(path_)) status_ = Status::Ok();
  }
  ~NeededFolder() {
    // One that is not empty stays by itself.
    if (made_) static_cast<void>(files_.DeleteFolder(path_));
  }
  NeededFolder(const NeededFolder&) = delete;
  NeededFolder& operator=(const NeededFolder&) = delete;

  const Status& status() const { return status_; }

 private:
  Files& files_;
  std::string path_;
  Status status_;
  bool made_ = false;
};

// The shot in `folder` with the content of the bitmap `path`; empty when there is none.
Result<std::string> FindSameShot(Files& files, const std::string& folder,
                                 const std::vector<std::string>& shots, const std::string& path) {
  const Result<std::string> content = files.Read(path);
  if (!content.ok()) return content.status;
  for (const std::string& shot : shots) {
    const Result<std::string> other = files.Read(folder + shot, content->size());
    if (other.ok() && *other == *content) return shot;
  }
  return std::string();
}

int FirstFreeNumber(const std::vector<std::string>& shots) {
  std::set<int> taken;
  for (const std::string& shot : shots) taken.insert(*TestShotNumber(shot));
  int number = 1;
  while (taken.contains(number)) ++number;
  return number;
}

// Writes the shot into `folder` under the first free number and gives its name.
Result<std::string> WriteShot(Platform& platform, const std::string& folder, const Picture& shot,
                              const std::string& shown_name) {
  Files& files = platform.files;
  for (;;) {
    const Result<std::vector<std::string>> shots = ListTestShots(files, folder);
    if (!shots.ok()) return shots.status;
    const std::string name = TestShotName(FirstFreeNumber(*shots));
    const std::string temporary = files.TemporaryBeside(folder + name);
    if (Status saved = platform.codec.SaveBitmap(temporary, shot->view()); !saved.ok()) {
      return saved;
    }
    const Result<std::string> same = FindSameShot(files, folder, *shots, temporary);
    if (!same.ok() || !same->empty()) {
      static_cast<void>(files.Delete(temporary));
      if (!same.ok()) return same.status;
      return Status::Error(Failure::kExists, shown_name + ": is among the test shots already, as " +
                                                 files.Display(folder + *same));
    }
    const Status published = files.Publish(temporary, folder + name);
    if (published.ok()) return name;
    // Another program may have taken the number meanwhile.
    if (published.failure != Failure::kExists) return published;
  }
}

}  // namespace

Status NeitherDarkNorLight(const std::string& name) {
  return Status::Error(Failure::kUnsupported,
                       name + " is neither very bright or very dark, and cannot be assessed");
}

Result<AddedShot> AddTestShot(const Module1& app, Platform& platform, const std::string& path) {
  Files& files = platform.files;
  const Result<Picture> shot = platform.codec.Load(path);
  if (!shot.ok()) return shot.status;

  AddedShot added;
  added.resolution = {(*shot)->width(), (*shot)->height()};
  added.kind = KindOfShot((*shot)->view());
  if (added.kind == ShotKind::kNeither) return NeitherDarkNorLight(files.Display(path));

  const NeededFolder all(files, DeadPixelsFolder(app));
  if (!all.status().ok()) return all.status();
  const std::string folder = ResolutionFolder(app, added.resolution);
  const NeededFolder own(files, folder);
  if (!own.status().ok()) return own.status();
  const Result<std::string> name = WriteShot(platform, folder, *shot, files.Display(path));
  if (!name.ok()) return name.status;
  added.name = *name;
  return added;
}

}  // namespace tarnwell
