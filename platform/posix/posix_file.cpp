#include "platform/posix/posix_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/posix_path.h"

namespace tarnwell {

PosixFile::~PosixFile() {
  if (descriptor_ >= 0) close(descriptor_);
}

Result<PosixFile> OpenFile(const std::string& path, int flags, Subject subject,
                           const std::string& shown) {
  const Result<std::string> system_path = ToSystemPath(path);
  if (!system_path.ok()) return system_path.status;
  // Without O_NONBLOCK a pipe would be waited for until somebody opens its other end.
  int descriptor;
  do {
    descriptor = open(system_path->c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) return SystemError(errno, shown, subject);
  PosixFile file(descriptor);
  struct stat found;
  if (fstat(descriptor, &found) != 0) {
    const int error = errno;
    if ((flags & O_EXCL) != 0) unlink(system_path->c_str());  // made by this call
    return SystemError(error, shown, subject);
  }
  if (S_ISDIR(found.st_mode)) return SystemError(EISDIR, shown, subject);
  if (!S_ISREG(found.st_mode)) return PathError(Failure::kOther, shown, "is not a file");
  return file;
}

Status WriteAll(const PosixFile& file, std::string_view bytes, const std::string& shown) {
  while (!bytes.empty()) {
    const ssize_t written = write(file.descriptor(), bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return SystemError(errno, shown, Subject::kNewFile);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return Status::Ok();
}

namespace {

// Asks before every part, of some megabytes at most, whether to go on.
Status WritePiece(const PosixFile& file, std::string_view bytes, const std::string& path,
                  const GoOn& go_on) {
  constexpr std::size_t kBytesAtOnce = std::size_t{1} << 22;
  Status written;
  while (written.ok() && !bytes.empty()) {
    const std::string_view part = bytes.substr(0, kBytesAtOnce);
    written = go_on(1) ? WriteAll(file, part, path) : Status::Cancelled(DisplayPath(path));
    bytes.remove_prefix(part.size());
  }
  return written;
}

}  // namespace

Status WriteNewFile(const std::string& path, std::span<const std::string_view> pieces,
                    const GoOn& go_on) {
  Result<PosixFile> file = OpenFile(path, O_WRONLY | O_CREAT | O_EXCL, Subject::kNewFile);
  if (!file.ok()) return file.status;
  Status written;
  for (const std::string_view piece : pieces) {
    if (written.ok()) written = WritePiece(*file, piece, path, go_on);
  }
  // Some disks tell only here that they had no room.
  if (close(file->Release()) != 0 && written.ok()) {
    written = SystemError(errno, path, Subject::kNewFile);
  }
  if (!written.ok()) unlink(ToSystemPath(path)->c_str());
  return written;
}

Status Flush(const PosixFile& file, const std::string& shown) {
  if (fsync(file.descriptor()) == 0 || errno == EINVAL) return Status::Ok();
  return SystemError(errno, shown, Subject::kFile);
}

bool FlushFolderOf(const std::string& path) {
  const Result<std::string> system_path = ToSystemPath(path);
  if (!system_path.ok()) return false;
  const PosixFile folder(
      open(SystemFolderOf(*system_path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // A folder that may be written into but not read cannot be flushed; that is no error of the disk.
  if (folder.descriptor() < 0) return errno == EACCES;
  return fsync(folder.descriptor()) == 0 || errno == EINVAL || errno == EROFS;
}

}  // namespace tarnwell
