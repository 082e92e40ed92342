#pragma once

#include "platform/files.h"

namespace tarnwell {

// The file system of Linux. File names may be any bytes; one that holds a backslash cannot be
// addressed (posix_path.h): List leaves it out, and every call that is handed one refuses it with
// kUnsupported. Pipes, sockets and devices are no files: they are not listed, opened or waited for.
class PosixFiles : public Files {
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
};

}  // namespace tarnwell
