#include "platform/posix/posix_files.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/line_end.h"
#include "platform/posix/posix_error.h"
#include "platform/posix/posix_file.h"
#include "platform/posix/posix_move.h"
#include "platform/posix/posix_path.h"
#include "platform/posix/temporary_files.h"

namespace tarnwell {
namespace {

constexpr std::uint64_t kLongestRead = std::uint64_t{1} << 32;  // as where a caller names no limit

bool LooksLike(const std::string& path, mode_t kind) {
  const Result<std::string> system_path = ToSystemPath(path);
  struct stat found;
  return system_path.ok() && stat(system_path->c_str(), &found) == 0 &&
         (found.st_mode & S_IFMT) == kind;
}

// Reads to the end of the file, of which `expected` bytes are announced.
Status ReadToEnd(const PosixFile& file, const std::string& path, std::uint64_t expected,
                 std::uint64_t most_bytes, std::string& bytes) {
  // One byte of room more than announced, so that the end is met without growing.
  bytes.resize(expected + 1);
  std::size_t filled = 0;
  for (;;) {
    if (filled == bytes.size()) bytes.resize(bytes.size() * 2);
    const ssize_t got = read(file.descriptor(), bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return SystemError(errno, path, Subject::kFile);
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
    if (filled > most_bytes) return PathError(Failure::kTooLarge, path, "the file is too large");
  }
  bytes.resize(filled);
  return Status::Ok();
}

// What the system says of a file or folder called `name`; nothing for what is neither.
std::optional<FolderEntry> EntryFrom(const struct stat& found, const std::string& name) {
  FolderEntry entry{.name = name, .is_folder = S_ISDIR(found.st_mode)};
  if (!entry.is_folder && !S_ISREG(found.st_mode)) return std::nullopt;
  if (!entry.is_folder) entry.size = static_cast<std::uint64_t>(found.st_size);
  entry.modified_nanos = std::int64_t{found.st_mtim.tv_sec} * 1'000'000'000 + found.st_mtim.tv_nsec;
  return entry;
}

// The entry `name` of an open folder; nothing for what is neither a file nor a folder, and for
// links that lead nowhere. A file whose name cannot be addressed is listed, so that whoever opens
// it is told why; a folder of such a name is not.
std::optional<FolderEntry> EntryOf(int folder, const std::string& name) {
  if (name == "." || name == "..") return std::nullopt;
  const std::string spelled = FromSystemPath(name);
  struct stat found;
  if (fstatat(folder, name.c_str(), &found, 0) == 0) {
    const bool is_addressed = spelled == name || !S_ISDIR(found.st_mode);
    return is_addressed ? EntryFrom(found, spelled) : std::nullopt;
  }
  if (errno == ENOENT || errno == ELOOP) return std::nullopt;
  return FolderEntry{.name = spelled};  // it is there, but nothing about it may be known
}

// The whole content of an open file.
Result<std::string> ContentOf(const PosixFile& file, const std::string& path,
                              std::uint64_t most_bytes) {
  struct stat found;
  if (fstat(file.descriptor(), &found) != 0) return SystemError(errno, path, Subject::kFile);
  const auto size = static_cast<std::uint64_t>(found.st_size);
  if (size > most_bytes) return PathError(Failure::kTooLarge, path, "the file is too large");
  std::string bytes;
  try {
    const Status read = ReadToEnd(file, path, size, most_bytes, bytes);
    if (!read.ok()) return read;
  } catch (const std::bad_alloc&) {
    return SystemError(ENOMEM, path, Subject::kFile);
  }
  return bytes;
}

// Whether `path` still leads to the open file, and has not been replaced or deleted.
bool IsNamed(const PosixFile& file, const std::string& path) {
  struct stat opened, named;
  if (stat(ToSystemPath(path)->c_str(), &named) != 0) return errno != ENOENT && errno != ENOTDIR;
  if (fstat(file.descriptor(), &opened) != 0) return true;
  return opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// Opens a file and locks it against everybody else who adds to it or updates it, until it is
// closed. Where the file system has no locks, the last of two who come at the same time wins.
Result<PosixFile> OpenLocked(const std::string& path, int flags, Subject subject) {
  for (;;) {
    Result<PosixFile> file = OpenFile(path, flags, subject);
    if (!file.ok()) return file;
    while (flock(file->descriptor(), LOCK_EX) != 0 && errno == EINTR) {
    }
    // An update by another program puts a new file in the place of the one that was waited for.
    if (IsNamed(*file, path)) return file;
  }
}

// The file that a write to `path` is meant for: a link stands for what it leads to.
Result<std::string> BehindLinks(const std::string& path) {
  Result<std::string> system_path = ToSystemPath(path);
  if (!system_path.ok()) return system_path;
  const std::unique_ptr<char, decltype(&free)> real(realpath(system_path->c_str(), nullptr), &free);
  if (real) return std::string(real.get());
  if (errno == ENOENT) return system_path;
  return SystemError(errno, path, Subject::kNewFile);
}

// Puts a temporary file that holds `bytes`, flushed, beside `target` and hands it to `move`, which
// gives it its name. Both are paths of the system; failures name `shown`. On failure nothing is
// left of it.
Status WriteAndMove(const std::string& target, std::string_view bytes, std::optional<mode_t> rights,
                    const std::string& shown,
                    const std::function<Status(const std::string& temporary)>& move) {
  const std::string temporary = NewTemporaryIn(SystemFolderOf(target));
  Status written;
  {
    Result<PosixFile> file =
        OpenFile(FromSystemPath(temporary), O_WRONLY | O_CREAT | O_EXCL, Subject::kNewFile, shown);
    if (!file.ok()) return file.status;
    written = WriteAll(*file, bytes, shown);
    if (rights && written.ok() && fchmod(file->descriptor(), *rights) != 0) {
      written = SystemError(errno, shown, Subject::kNewFile);
    }
    if (written.ok()) written = Flush(*file, shown);
  }
  if (written.ok()) written = move(temporary);
  if (!written.ok()) {
    unlink(temporary.c_str());
    return written;
  }
  // From here on the new content is in place; a disk that cannot flush the folder would at worst
  // bring the old one back after a power cut, whole as well.
  FlushFolderOf(FromSystemPath(target));
  return Status::Ok();
}

}  // namespace

bool PosixFiles::FileExists(const std::string& path) { return LooksLike(path, S_IFREG); }

bool PosixFiles::FolderExists(const std::string& path) { return LooksLike(path, S_IFDIR); }

Result<std::string> PosixFiles::Read(const std::string& path, std::uint64_t most_bytes) {
  const Result<PosixFile> file = OpenFile(path, O_RDONLY, Subject::kFile);
  if (!file.ok()) return file.status;
  return ContentOf(*file, path, most_bytes);
}

bool PosixFiles::NameIsTaken(const std::string& path) {
  const Result<std::string> system_path = ToSystemPath(path);
  struct stat found;
  return system_path.ok() && lstat(system_path->c_str(), &found) == 0;
}

bool PosixFiles::IsSameFolder(const std::string& one, const std::string& other) {
  const Result<std::string> first = ToSystemPath(one), second = ToSystemPath(other);
  struct stat a, b;
  return first.ok() && second.ok() && stat(first->c_str(), &a) == 0 &&
         stat(second->c_str(), &b) == 0 && S_ISDIR(a.st_mode) && a.st_dev == b.st_dev &&
         a.st_ino == b.st_ino;
}

Result<FolderEntry> PosixFiles::Find(const std::string& path) {
  const Result<std::string> system_path = ToSystemPath(path);
  if (!system_path.ok()) return system_path.status;
  struct stat found;
  if (stat(system_path->c_str(), &found) != 0) return SystemError(errno, path, Subject::kFile);
  auto entry = EntryFrom(found, path.substr(path.rfind('\\') + 1));
  if (!entry) return PathError(Failure::kOther, path, "is not a file");
  return *entry;
}

Result<std::vector<FolderEntry>> PosixFiles::List(const std::string& folder) {
  const Result<std::string> system_path = ToSystemPath(folder);
  if (!system_path.ok()) return system_path.status;
  const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(system_path->c_str()), &closedir);
  if (!open) return SystemError(errno, folder, Subject::kFolder);
  std::vector<FolderEntry> entries;
  for (;;) {
    errno = 0;
    const dirent* found = readdir(open.get());
    if (found == nullptr) break;
    if (auto entry = EntryOf(dirfd(open.get()), found->d_name)) entries.push_back(*entry);
  }
  if (errno != 0) return SystemError(errno, folder, Subject::kFolder);
  return entries;
}

Status PosixFiles::CreateFolder(const std::string& folder) {
  const Result<std::string> system_path = ToSystemPath(folder);
  if (!system_path.ok()) return system_path.status;
  if (mkdir(system_path->c_str(), 0777) == 0) return Status::Ok();
  return SystemError(errno, folder, Subject::kNewFolder);
}

Status PosixFiles::Replace(const std::string& path, std::string_view bytes) {
  const Result<std::string> target = BehindLinks(path);
  if (!target.ok()) return target.status;
  struct stat old;
  std::optional<mode_t> rights;
  if (stat(target->c_str(), &old) == 0) {
    if (S_ISDIR(old.st_mode)) return SystemError(EISDIR, path, Subject::kNewFile);
    if (!S_ISREG(old.st_mode)) return PathError(Failure::kOther, path, "is not a file");
    rights = old.st_mode & 0777;
  }
  return WriteAndMove(*target, bytes, rights, path, [&](const std::string& temporary) {
    if (rename(temporary.c_str(), target->c_str()) == 0) return Status::Ok();
    return SystemError(errno, path, Subject::kNewFile);
  });
}

Status PosixFiles::Append(const std::string& path, std::string_view lines) {
  // Somebody else may make or delete the file between the two looks at it.
  constexpr int kMostTries = 100;
  const auto add = [&](std::string_view old) {
    return std::string(old).append(MissingLineEnd(old)).append(lines);
  };
  Status appended;
  for (int tries = 0; tries < kMostTries; ++tries) {
    appended = Update(path, add, kLongestRead);
    if (appended.failure != Failure::kNotFound) return appended;
    const Result<std::string> target = ToSystemPath(path);
    if (!target.ok()) return target.status;
    appended = WriteAndMove(*target, lines, std::nullopt, path, [&](const std::string& temporary) {
      return RenameWithoutReplacing(FromSystemPath(temporary), path, nullptr);
    });
    if (appended.failure != Failure::kExists) return appended;
  }
  return appended;
}

Status PosixFiles::Update(const std::string& path, const FileChange& change,
                          std::uint64_t most_bytes) {
  const Result<PosixFile> file = OpenLocked(path, O_RDWR, Subject::kFile);
  if (!file.ok()) return file.status;
  const Result<std::string> bytes = ContentOf(*file, path, most_bytes);
  if (!bytes.ok()) return bytes.status;
  const std::optional<std::string> changed = change(*bytes);
  return changed ? Replace(path, *changed) : Status::Ok();
}

std::string PosixFiles::TemporaryBeside(const std::string& path) {
  const std::string folder = path.substr(0, path.rfind('\\') + 1);
  // A folder that cannot be addressed is refused by whoever writes to what is named here.
  const Result<std::string> system_folder = ToSystemPath(folder);
  const std::string temporary = NewTemporaryIn(system_folder.ok() ? *system_folder : "");
  return folder + temporary.substr(temporary.rfind('/') + 1);
}

Status PosixFiles::Publish(const std::string& temporary, const std::string& path) {
  Status published;
  {
    const Result<PosixFile> file = OpenFile(temporary, O_RDONLY, Subject::kFile);
    published = file.ok() ? Flush(*file, path) : file.status;
  }
  if (published.ok()) published = RenameWithoutReplacing(temporary, path, nullptr);
  if (!published.ok()) {
    if (const auto name = ToSystemPath(temporary); name.ok()) unlink(name->c_str());
    return published;
  }
  FlushFolderOf(path);
  return Status::Ok();
}

Status PosixFiles::Move(const std::string& from, const std::string& to) {
  if (FolderExists(from)) return SystemError(EISDIR, from, Subject::kFile);
  if (auto moved = MoveRelativeLink(from, to)) return *moved;
  bool other_volume = false;
  Status moved = RenameWithoutReplacing(from, to, &other_volume);
  if (moved.ok()) {
    FlushFolderOf(to);
    FlushFolderOf(from);
    return moved;
  }
  if (!other_volume) return moved;

  const Result<CopiedSource> source = CopiedSource::Open(from);
  if (!source.ok()) return source.status;
  const std::string temporary = TemporaryBeside(to);
  Status copied = source->CopyFlushed(temporary, to);
  if (copied.ok()) copied = Publish(temporary, to);
  if (!copied.ok()) return copied;
  // The source goes only once the copy would survive a power cut.
  Status finished = FlushFolderOf(to) ? source->Delete() : SystemError(EIO, to, Subject::kNewFile);
  if (!finished.ok()) Delete(to).ok();
  return finished;
}

Status PosixFiles::Delete(const std::string& path) {
  const Result<std::string> system_path = ToSystemPath(path);
  if (!system_path.ok()) return system_path.status;
  if (unlink(system_path->c_str()) == 0) return Status::Ok();
  return SystemError(errno, path, Subject::kFile);
}

Status PosixFiles::DeleteFolder(const std::string& path) {
  const Result<std::string> system_path = ToSystemPath(path);
  if (!system_path.ok()) return system_path.status;
  if (rmdir(system_path->c_str()) == 0) return Status::Ok();
  // A link to a folder is no folder to the system, and goes as a file does.
  const int error = errno;
  if (error == ENOTDIR && FolderExists(path) && unlink(system_path->c_str()) == 0) {
    return Status::Ok();
  }
  return SystemError(error, path, Subject::kFolder);
}

std::string PosixFiles::Absolute(const std::string& path) { return AbsolutePath(path); }

std::string PosixFiles::Display(const std::string& path) { return DisplayPath(path); }

}  // namespace tarnwell
