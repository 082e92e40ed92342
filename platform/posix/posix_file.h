#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/events.h"
#include "platform/posix/posix_error.h"
#include "platform/status.h"

namespace tarnwell {

// An open file of the system, closed at the end of its life.
class PosixFile {
 public:
  PosixFile() = default;
  explicit PosixFile(int descriptor) : descriptor_(descriptor) {}
  PosixFile(PosixFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  PosixFile& operator=(PosixFile&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
  }
  ~PosixFile();

  int descriptor() const { return descriptor_; }

  // Gives the descriptor away.
  int Release() { return std::exchange(descriptor_, -1); }

 private:
  int descriptor_ = -1;
};

// Opens `path` (in the program's spelling) with the open(2) flags `flags`. Only a regular file is
// opened: a folder, a device or a pipe is refused, and none of them is waited for. A failure names
// `shown`, the file that the user knows about.
Result<PosixFile> OpenFile(const std::string& path, int flags, Subject subject,
                           const std::string& shown);
inline Result<PosixFile> OpenFile(const std::string& path, int flags, Subject subject) {
  return OpenFile(path, flags, subject, path);
}

// Writes all of `bytes` at the file's position. A failure names `shown`.
Status WriteAll(const PosixFile& file, std::string_view bytes, const std::string& shown);

// Makes the new file `path` hold the `pieces`, one behind the other; kExists when the name is
// taken. On failure no file is left. Not flushed. Ends with kCancelled when `go_on` says so.
Status WriteNewFile(const std::string& path, std::span<const std::string_view> pieces,
                    const GoOn& go_on = ToTheEnd);

// Waits until the file's content is on the disk. A failure names `shown`.
Status Flush(const PosixFile& file, const std::string& shown);

// Waits until the names in the folder of `path` are on the disk. False when the disk reports an
// error; a file system that cannot flush folders counts as done.
bool FlushFolderOf(const std::string& path);

}  // namespace tarnwell
