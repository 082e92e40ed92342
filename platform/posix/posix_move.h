#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>
#include <utility>

#include "platform/posix/posix_file.h"
#include "platform/status.h"

namespace tarnwell {

// Gives the file `from` the name `to` on the same volume, never replacing anything: kExists when
// the name is taken. `other_volume` (may be null) is set when the two lie on different volumes;
// the call fails then.
Status RenameWithoutReplacing(const std::string& from, const std::string& to, bool* other_volume);

// Moves the link `from` to another folder, where it would lead elsewhere as it stands, never
// replacing anything. Nothing is done and nothing given for what is no such link, and where there
// can be none.
std::optional<Status> MoveRelativeLink(const std::string& from, const std::string& to);

// A file that is copied, and deleted once the copy is safe, if it is still the same then.
class CopiedSource {
 public:
  // Opens the file `path`.
  static Result<CopiedSource> Open(const std::string& path);

  // Copies it to the new file `to`, with its rights and its time of last change, and flushes the
  // copy. On failure no copy is left; a failure to write names `shown`.
  Status CopyFlushed(const std::string& to, const std::string& shown) const;

  // Deletes it. Fails when another file has its name by now, or it has other content. Where the
  // name is gone already, that is as good.
  Status Delete() const;

 private:
  CopiedSource(std::string path, PosixFile file, const struct stat& found)
      : path_(std::move(path)), file_(std::move(file)), found_(found) {}

  std::string path_;
  PosixFile file_;
  struct stat found_;
};

}  // namespace tarnwell
