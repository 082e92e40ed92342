#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace tarnwell {

// One entry of a folder. `name` is UTF-8, without the folder.
struct FolderEntry {
  std::string name;
  bool is_folder = false;
  std::uint64_t size = 0;           // bytes; 0 for folders
  std::int64_t modified_nanos = 0;  // system time of the last change; only compared, never shown
};

// Makes the new content of a file from the present one; nothing when the file is to stay.
using FileChange = std::function<std::optional<std::string>(std::string_view)>;

// The file system as the flows see it.
//
// Paths are UTF-8 and spelled with backslashes on every platform ("C:\Photos\img.jpg", or
// "\home\me\img.jpg" where the system spells it with slashes). Implementations translate at the
// edge. Every failure names the path in the system's own spelling and gives the reason.
//
// All calls may be made from any thread.
class Files {
 public:
  virtual ~Files() = default;

  virtual bool FileExists(const std::string& path) = 0;    // false for a folder
  virtual bool FolderExists(const std::string& path) = 0;  // a trailing backslash is allowed
  // Whether no new file can have this name: a file, a folder, a device, or a link to nowhere has
  // it.
  virtual bool NameIsTaken(const std::string& path) = 0;
  // Whether both lead to the same existing folder, however they are spelled and linked.
  virtual bool IsSameFolder(const std::string& one, const std::string& other) = 0;

  // The one file or folder `path`, as List gives it. kNotFound when there is none.
  virtual Result<FolderEntry> Find(const std::string& path) = 0;

  // The whole file as bytes. kTooLarge when it is longer than `most_bytes`; nothing is read then.
  virtual Result<std::string> Read(const std::string& path,
                                   std::uint64_t most_bytes = std::uint64_t{1} << 32) = 0;

  // The entries of `folder` ("." and ".." left out) in the order of the system.
  virtual Result<std::vector<FolderEntry>> List(const std::string& folder) = 0;

  // Makes one folder, whose parent must exist. kExists when the name is taken.
  virtual Status CreateFolder(const std::string& folder) = 0;

  // Makes `path` hold exactly `bytes`, whether it existed or not. Either the old content or the new
  // one is there at every instant: written beside it under a temporary name, flushed, then moved.
  virtual Status Replace(const std::string& path, std::string_view bytes) = 0;

  // Adds `bytes`, lines with their ends, at the end of `path` (made when missing), on lines of
  // their own also where the last line has no end. Two programs that append at the same time lose
  // and interleave nothing. The file changes as by Replace, so that no power cut leaves half a
  // line.
  virtual Status Append(const std::string& path, std::string_view bytes) = 0;

  // Hands the content of `path` to `change` and replaces the file by what that gives, like Replace.
  // Whoever appends to the file or updates it, in this program or another, waits meanwhile, so that
  // nothing added in between is lost. `change` is called once at most and must not call Files for
  // the same path. kNotFound when there is no such file, kTooLarge when it is longer than
  // `most_bytes`; on any failure the file is as it was.
  virtual Status Update(const std::string& path, const FileChange& change,
                        std::uint64_t most_bytes = std::uint64_t{1} << 32) = 0;

  // A name for a new file, not made, in the folder of `path` that no other call or program is
  // given. The first write into a folder, and this, deletes there what programs left that were
  // ended.
  virtual std::string TemporaryBeside(const std::string& path) = 0;

  // Flushes `temporary` and gives it the name `path`, never replacing anything: kExists when a
  // file of that name is there by then. On failure `temporary` is deleted.
  virtual Status Publish(const std::string& temporary, const std::string& path) = 0;

  // Moves a file to a new name, never replacing anything (kExists); across volumes by copying,
  // flushing and then deleting the source. Fails when another file is put in its place meanwhile,
  // which stays. Where the system moves links as links, they go on leading to the same file.
  virtual Status Move(const std::string& from, const std::string& to) = 0;

  virtual Status Delete(const std::string& path) = 0;        // kNotFound when there is none
  virtual Status DeleteFolder(const std::string& path) = 0;  // an empty one, or a link to any

  // `path` made absolute against the current folder, in the spelling described above. An absolute
  // path comes back as it is.
  virtual std::string Absolute(const std::string& path) = 0;

  // `path` as the user writes it on this system, for messages.
  virtual std::string Display(const std::string& path) = 0;
};

}  // namespace tarnwell
