#include "platform/posix/posix_move.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "platform/posix/posix_file.h"
#include "platform/posix/posix_path.h"

namespace tarnwell {
namespace {

constexpr std::size_t kCopyBytes = 1 << 20;

// For file systems that do not know renaming without replacing: a second name never replaces
// anything either. For an instant the file has both names; it is never without one.
int LinkThenUnlink(const char* from, const char* to) {
  if (link(from, to) != 0) return -1;
  if (unlink(from) == 0) return 0;
  const int error = errno;
  unlink(to);
  errno = error;
  return -1;
}

Status CopyContent(const PosixFile& source, const std::string& from, const PosixFile& copy,
                   const std::string& shown) {
  std::vector<char> buffer(kCopyBytes);
  for (;;) {
    const ssize_t got = read(source.descriptor(), buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return SystemError(errno, from, Subject::kFile);
    if (got == 0) return Flush(copy, shown);
    Status written = WriteAll(copy, {buffer.data(), static_cast<std::size_t>(got)}, shown);
    if (!written.ok()) return written;
  }
}

// Whether a rename failed because of the file itself or its folder: where another folder takes
// files, a refusal means that this one gives none. Within a folder it is the new name's failure,
// the one that the user knows.
bool IsFaultOfSource(int error, const std::string& system_from, const std::string& system_to) {
  struct stat found;
  if (error == ENOENT) return lstat(system_from.c_str(), &found) != 0;
  const bool refused = error == EACCES || error == EPERM;
  const std::string target = SystemFolderOf(system_to);
  return refused && target != SystemFolderOf(system_from) &&
         access(target.c_str(), W_OK | X_OK) == 0;
}

Status ChangedMeanwhile(const std::string& path) {
  return PathError(Failure::kOther, path, "was changed while it was moved");
}

bool IsUnchanged(const struct stat& then, const struct stat& now) {
  return now.st_dev == then.st_dev && now.st_ino == then.st_ino && now.st_size == then.st_size &&
         now.st_mtim.tv_sec == then.st_mtim.tv_sec && now.st_mtim.tv_nsec == then.st_mtim.tv_nsec;
}

}  // namespace

Status RenameWithoutReplacing(const std::string& from, const std::string& to, bool* other_volume) {
  const Result<std::string> system_from = ToSystemPath(from);
  if (!system_from.ok()) return system_from.status;
  const Result<std::string> system_to = ToSystemPath(to);
  if (!system_to.ok()) return system_to.status;
  int moved =
      renameat2(AT_FDCWD, system_from->c_str(), AT_FDCWD, system_to->c_str(), RENAME_NOREPLACE);
  if (moved != 0 && (errno == EINVAL || errno == ENOSYS)) {
    moved = LinkThenUnlink(system_from->c_str(), system_to->c_str());
  }
  if (moved == 0) return Status::Ok();
  const int error = errno;
  if (other_volume != nullptr) *other_volume = error == EXDEV;
  return IsFaultOfSource(error, *system_from, *system_to)
             ? SystemError(error, from, Subject::kFile)
             : SystemError(error, to, Subject::kNewFile);
}

std::optional<Status> MoveRelativeLink(const std::string& from, const std::string& to) {
  const Result<std::string> link = ToSystemPath(from), target = ToSystemPath(to);
  if (!link.ok() || !target.ok()) return std::nullopt;
  struct stat then, now;
  char word = 0;
  const bool is_relative = lstat(link->c_str(), &then) == 0 && S_ISLNK(then.st_mode) &&
                           readlink(link->c_str(), &word, 1) == 1 && word != '/';
  if (!is_relative || SystemFolderOf(*link) == SystemFolderOf(*target)) return std::nullopt;
  const std::unique_ptr<char, void (*)(void*)> file(realpath(link->c_str(), nullptr), &std::free);
  if (!file) return std::nullopt;
  if (symlink(file.get(), target->c_str()) != 0) {
    if (errno == EEXIST) return SystemError(errno, to, Subject::kNewFile);
    return std::nullopt;  // no links there: the file is copied
  }
  const bool is_same = lstat(link->c_str(), &now) == 0 && IsUnchanged(then, now);
  if (is_same && unlink(link->c_str()) == 0) return Status::Ok();
  const int error = errno;
  unlink(target->c_str());
  return is_same ? SystemError(error, from, Subject::kFile) : ChangedMeanwhile(from);
}

Result<CopiedSource> CopiedSource::Open(const std::string& path) {
  Result<PosixFile> file = OpenFile(path, O_RDONLY, Subject::kFile);
  if (!file.ok()) return file.status;
  struct stat found;
  if (fstat(file->descriptor(), &found) != 0) return SystemError(errno, path, Subject::kFile);
  return CopiedSource(path, std::move(*file), found);
}

Status CopiedSource::CopyFlushed(const std::string& to, const std::string& shown) const {
  Result<PosixFile> copy = OpenFile(to, O_WRONLY | O_CREAT | O_EXCL, Subject::kNewFile, shown);
  if (!copy.ok()) return copy.status;
  Status copied = CopyContent(file_, path_, *copy, shown);
  if (copied.ok()) {
    // A volume that keeps neither rights nor times still holds the photo.
    const timespec times[2] = {found_.st_atim, found_.st_mtim};
    if (fchmod(copy->descriptor(), found_.st_mode & 0777) != 0) errno = 0;
    if (futimens(copy->descriptor(), times) != 0) errno = 0;
  }
  if (!copied.ok()) unlink(ToSystemPath(to)->c_str());
  return copied;
}

Status CopiedSource::Delete() const {
  const Result<std::string> system_path = ToSystemPath(path_);
  if (!system_path.ok()) return system_path.status;
  struct stat now;
  const bool is_there = stat(system_path->c_str(), &now) == 0;
  if (is_there && !IsUnchanged(found_, now)) {
    return ChangedMeanwhile(path_);
  }
  if (is_there && unlink(system_path->c_str()) == 0) return Status::Ok();
  return errno == ENOENT ? Status::Ok() : SystemError(errno, path_, Subject::kFile);
}

}  // namespace tarnwell
