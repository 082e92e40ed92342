#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/events.h"
#include "platform/files.h"

namespace tarnwell {

// Makes the new file `path` hold `bytes`, flushed; kExists when the name is taken, kCancelled when
// `go_on` ends it. On failure no file is left.
Status WriteNewFile(const std::string& path, std::string_view bytes, const GoOn& go_on);

class Win32Files : public Files {
 public:
  bool FileExists(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  bool NameIsTaken(const std::string& path) override;
  bool IsSameFolder(const std::string& one, const std::string& other) override;
  Result<FolderEntry> Find(const std::string& path) override;
  Result<std::string> Read(const std::string& path, std::uint64_t most_bytes) override;
  Result<std::vector<FolderEntry>> List(const std::string& folder) override;
  Status CreateFolder(const std::string& folder) override;
  Status Replace(const std::string& path, std::string_view bytes) override;
  Status Append(const std::string& path, std::string_view bytes) override;
  Status Update(const std::string& path, const FileChange& change,
                std::uint64_t most_bytes) override;
  std::string TemporaryBeside(const std::string& path) override;
  Status Publish(const std::string& temporary, const std::string& path) override;
  Status Move(const std::string& from, const std::string& to) override;
  Status Delete(const std::string& path) override;
  Status DeleteFolder(const std::string& path) override;
  std::string Absolute(const std::string& path) override;
  std::string Display(const std::string& path) override;

 private:
  // Moves to another volume: a copy beside the target that is flushed and published, then the
  // source goes.
  Status MoveByCopy(const std::string& from, const std::string& to);
};

}  // namespace tarnwell
