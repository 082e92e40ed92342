#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/line_end.h"

namespace tarnwell {

// A file system of small files in memory, for rules that only read and write whole files. Folders
// are not kept: every folder exists. Paths are compared as they are spelled.
class MemoryFiles final : public Files {
 public:
  std::map<std::string, std::string> files;
  bool refuse_writes = false;
  int writes = 0;

  bool FileExists(const std::string& path) override { return files.contains(path); }
  bool FolderExists(const std::string&) override { return true; }
  bool NameIsTaken(const std::string& path) override { return files.contains(path); }
  bool IsSameFolder(const std::string& one, const std::string& other) override {
    return one == other;
  }
  Result<FolderEntry> Find(const std::string& path) override {
    const auto found = files.find(path);
    if (found == files.end()) return Status::Error(Failure::kNotFound, path + ": does not exist");
    return FolderEntry{.name = path.substr(path.rfind('\\') + 1), .size = found->second.size()};
  }

  Result<std::string> Read(const std::string& path, std::uint64_t most_bytes) override {
    const auto found = files.find(path);
    if (found == files.end()) return Status::Error(Failure::kNotFound, path + ": does not exist");
    if (found->second.size() > most_bytes) {
      return Status::Error(Failure::kTooLarge, path + ": is too large");
    }
    return found->second;
  }

  Result<std::vector<FolderEntry>> List(const std::string&) override {
    return std::vector<FolderEntry>();
  }
  Status CreateFolder(const std::string&) override { return Status::Ok(); }

  Status Replace(const std::string& path, std::string_view bytes) override {
    if (refuse_writes) return Status::Error(Failure::kDiskFull, path + ": the disk is full");
    files[path] = bytes;
    ++writes;
    return Status::Ok();
  }
  Status Append(const std::string& path, std::string_view lines) override {
    std::string text = files[path];
    text.append(MissingLineEnd(text)).append(lines);
    return Replace(path, text);
  }

  Status Update(const std::string& path, const FileChange& change,
                std::uint64_t most_bytes) override {
    const Result<std::string> bytes = Read(path, most_bytes);
    if (!bytes.ok()) return bytes.status;
    const std::optional<std::string> changed = change(*bytes);
    return changed ? Replace(path, *changed) : Status::Ok();
  }

  std::string TemporaryBeside(const std::string& path) override { return path + ".tmp"; }
  Status Publish(const std::string& temporary, const std::string& path) override {
    return Move(temporary, path);
  }
  Status Move(const std::string& from, const std::string& to) override {
    if (files.contains(to)) return Status::Error(Failure::kExists, to + ": exists already");
    auto moved = files.extract(from);
    if (moved.empty()) return Status::Error(Failure::kNotFound, from + ": does not exist");
    moved.key() = to;
    files.insert(std::move(moved));
    return Status::Ok();
  }
  Status Delete(const std::string& path) override {
    if (files.erase(path) == 1) return Status::Ok();
    return Status::Error(Failure::kNotFound, path + ": does not exist");
  }
  Status DeleteFolder(const std::string&) override { return Status::Ok(); }

  std::string Absolute(const std::string& path) override {
    return path.starts_with("C:\\") ? path : "C:\\here\\" + path;
  }
  std::string Display(const std::string& path) override { return path; }
};

}  // namespace tarnwell
