#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/system.h"

namespace tarnwell {

// The system's files. `before_write` may refuse what is to be written or moved to a path, or do
// something there first, as another program would.
class FaultyFiles : public Files {
 public:
  std::function<Status(const std::string& path)> before_write = [](auto&) { return Status::Ok(); };

  std::string unknown;  // the name of this file is there, and nothing else about it is known

  bool FileExists(const std::string& path) override { return target_->FileExists(path); }
  bool FolderExists(const std::string& path) override { return target_->FolderExists(path); }
  bool NameIsTaken(const std::string& path) override { return target_->NameIsTaken(path); }
  bool IsSameFolder(const std::string& one, const std::string& other) override {
    return target_->IsSameFolder(one, other);
  }
  Result<FolderEntry> Find(const std::string& path) override {
    if (path == unknown) return NoPermission(path);
    return target_->Find(path);
  }
  Result<std::string> Read(const std::string& path, std::uint64_t most_bytes) override {
    if (path == unknown) return NoPermission(path);
    return target_->Read(path, most_bytes);
  }
  Result<std::vector<FolderEntry>> List(const std::string& folder) override {
    auto entries = target_->List(folder);
    for (FolderEntry& entry : entries.ok() ? *entries : std::vector<FolderEntry>()) {
      if (unknown.ends_with("\\" + entry.name)) entry = {.name = entry.name};
    }
    return entries;
  }
  Status CreateFolder(const std::string& folder) override { return target_->CreateFolder(folder); }
  Status Replace(const std::string& path, std::string_view bytes) override {
    const Status fault = before_write(path);
    return fault.ok() ? target_->Replace(path, bytes) : fault;
  }
  Status Append(const std::string& path, std::string_view bytes) override {
    const Status fault = before_write(path);
    return fault.ok() ? target_->Append(path, bytes) : fault;
  }
  Status Update(const std::string& path, const FileChange& change, std::uint64_t most) override {
    const Status fault = before_write(path);
    return fault.ok() ? target_->Update(path, change, most) : fault;
  }
  std::string TemporaryBeside(const std::string& path) override {
    return target_->TemporaryBeside(path);
  }
  Status Publish(const std::string& temporary, const std::string& path) override {
    const Status fault = before_write(path);
    if (fault.ok()) return target_->Publish(temporary, path);
    return Delete(temporary).ok() ? fault : Status::Error(Failure::kOther, temporary);
  }
  Status Move(const std::string& from, const std::string& to) override {
    const Status fault = before_write(to);
    return fault.ok() ? target_->Move(from, to) : fault;
  }
  Status Delete(const std::string& path) override { return target_->Delete(path); }
  Status DeleteFolder(const std::string& path) override { return target_->DeleteFolder(path); }
  std::string Absolute(const std::string& path) override { return target_->Absolute(path); }
  std::string Display(const std::string& path) override { return target_->Display(path); }

  // From now on the disk has no room.
  void Fill() {
    before_write = [this](const std::string& path) {
      return Status::Error(Failure::kDiskFull, Display(path) + ": disk full");
    };
  }

 private:
  Status NoPermission(const std::string& path) {
    return Status::Error(Failure::kNoAccess, Display(path) + ": no permission");
  }

  std::unique_ptr<Files> target_ = MakeSystemFiles();
};

}  // namespace tarnwell
