#include "tests/platform/posix/faulty_calls.h"

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

// What the linker calls the system's own functions once they are wrapped.
extern "C" {
int __real_open(const char*, int, ...);
ssize_t __real_write(int, const void*, size_t);
int __real_close(int);
int __real_fsync(int);
int __real_renameat2(int, const char*, int, const char*, unsigned);
int __real_lstat(const char*, struct stat*);
int __real_fstat(int, struct stat*);
}

namespace tarnwell {
namespace {

struct Watched {
  bool on = false;
  std::string folder;
  Fault fault = Fault::kNone;
  int at = 0;
  Limits limits;
  std::vector<FileCall> calls = {};
  std::map<ino_t, off_t> flushed = {};  // how much of each file a power cut would leave
};
Watched watched;

template <typename Look>
void ForEachFile(const Look& look) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(watched.folder)) {
    struct stat found;
    const std::string path = entry.path().string();
    if (__real_lstat(path.c_str(), &found) == 0 && S_ISREG(found.st_mode)) look(path, found);
  }
}

void LoseWhatWasNotFlushed() {
  ForEachFile([](const std::string& path, const struct stat& found) {
    const off_t kept = watched.flushed[found.st_ino];
    if (found.st_size > kept && truncate(path.c_str(), kept) != 0) std::abort();
  });
}

bool IsWatched(std::string_view path) { return watched.on && path.starts_with(watched.folder); }

bool IsWatched(int descriptor) {
  if (!watched.on) return false;
  char path[4096];
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const ssize_t length = readlink(link.c_str(), path, sizeof path);
  return length > 0 && IsWatched(std::string_view(path, static_cast<std::size_t>(length)));
}

constexpr bool kChanges = true;
constexpr bool kOnlyLooks = false;

// Counts a call. True when it is to fail, with the reason in errno.
bool Fails(const char* name, bool changes) {
  const int number = static_cast<int>(watched.calls.size());
  watched.calls.push_back({name, changes});
  switch (watched.fault) {
    case Fault::kNone:
      return false;
    case Fault::kDiskFull:
      errno = changes ? ENOSPC : EIO;
      return number == watched.at;
    case Fault::kNoAccess:
      errno = EACCES;
      return number >= watched.at;
    case Fault::kKilled:
    case Fault::kPowerCut:
      if (number == watched.at) FaultyCalls::EndProcess();
      return false;
  }
  return false;
}

template <typename Subject>
bool Fails(const Subject& subject, const char* name, bool changes) {
  return IsWatched(subject) && Fails(name, changes);
}

bool BetweenVolumes(std::string_view from, std::string_view to) {
  return IsWatched(from) && watched.limits.folders_are_volumes &&
         from.substr(0, from.rfind('/')) != to.substr(0, to.rfind('/'));
}

ino_t NumberOf(int descriptor) {
  struct stat found;
  return __real_fstat(descriptor, &found) == 0 ? found.st_ino : 0;
}

}  // namespace

FaultyCalls::FaultyCalls(const std::string& folder, Fault fault, int at, const Limits& limits) {
  watched = {.on = true, .folder = folder, .fault = fault, .at = at, .limits = limits};
  ForEachFile([](const std::string&, const struct stat& found) {
    watched.flushed[found.st_ino] = found.st_size;
  });
}

FaultyCalls::~FaultyCalls() { watched = {}; }

void FaultyCalls::EndProcess() {
  if (watched.fault == Fault::kPowerCut) LoseWhatWasNotFlushed();
  _exit(kEndedByFault);
}

const std::vector<FileCall>& FaultyCalls::calls() const { return watched.calls; }

}  // namespace tarnwell

using tarnwell::BetweenVolumes;
using tarnwell::Fails;
using tarnwell::IsWatched;
using tarnwell::kChanges;
using tarnwell::kOnlyLooks;
using tarnwell::NumberOf;
using tarnwell::watched;

// A call that only fails where it is to: by its first argument, a path or a descriptor.
#define LET_FAIL(type, name, parameters, arguments, first, changes, failure) \
  type __real_##name parameters;                                             \
  type __wrap_##name parameters {                                            \
    return Fails(first, #name, changes) ? failure : __real_##name arguments; \
  }

extern "C" {

LET_FAIL(ssize_t, read, (int f, void* to, size_t n), (f, to, n), f, kOnlyLooks, -1)
LET_FAIL(ssize_t, pread, (int f, void* to, size_t n, off_t at), (f, to, n, at), f, kOnlyLooks, -1)
LET_FAIL(int, ftruncate, (int f, off_t size), (f, size), f, kChanges, -1)
LET_FAIL(int, fchmod, (int f, mode_t mode), (f, mode), f, kOnlyLooks, -1)
LET_FAIL(int, futimens, (int f, const timespec* times), (f, times), f, kOnlyLooks, -1)
LET_FAIL(int, flock, (int f, int operation), (f, operation), f, kOnlyLooks, -1)
LET_FAIL(int, rename, (const char* from, const char* to), (from, to), from, kChanges, -1)
LET_FAIL(int, link, (const char* from, const char* to), (from, to), from, kChanges, -1)
LET_FAIL(int, unlink, (const char* path), (path), path, kChanges, -1)
LET_FAIL(int, mkdir, (const char* path, mode_t mode), (path, mode), path, kChanges, -1)
LET_FAIL(int, rmdir, (const char* path), (path), path, kChanges, -1)
LET_FAIL(int, stat, (const char* path, struct stat* to), (path, to), path, kOnlyLooks, -1)
LET_FAIL(int, lstat, (const char* path, struct stat* to), (path, to), path, kOnlyLooks, -1)
LET_FAIL(int, fstat, (int f, struct stat* to), (f, to), f, kOnlyLooks, -1)
LET_FAIL(int, fstatat, (int f, const char* name, struct stat* to, int flags), (f, name, to, flags),
         f, kOnlyLooks, -1)
LET_FAIL(DIR*, opendir, (const char* path), (path), path, kOnlyLooks, nullptr)
LET_FAIL(dirent*, readdir, (DIR * folder), (folder), dirfd(folder), kOnlyLooks, nullptr)
LET_FAIL(char*, realpath, (const char* path, char* to), (path, to), path, kOnlyLooks, nullptr)

int __wrap_open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  if (Fails(path, "open", (flags & (O_CREAT | O_TRUNC)) != 0)) return -1;
  const int descriptor = __real_open(path, flags, mode);
  // A new file may have the number of one that is gone.
  if (descriptor >= 0 && (flags & O_EXCL) != 0 && IsWatched(path)) {
    watched.flushed.erase(NumberOf(descriptor));
  }
  return descriptor;
}

// Where it fails, half of the bytes have gone to the file.
ssize_t __wrap_write(int file, const void* from, size_t size) {
  const bool fault_is_here = IsWatched(file) && watched.fault != tarnwell::Fault::kNone &&
                             static_cast<int>(watched.calls.size()) == watched.at;
  if (fault_is_here) static_cast<void>(!__real_write(file, from, size / 2));
  return Fails(file, "write", kChanges) ? -1 : __real_write(file, from, size);
}

// Closed it is in any case.
int __wrap_close(int file) {
  const bool fails = Fails(file, "close", kOnlyLooks);
  const int error = errno;
  const int closed = __real_close(file);
  if (!fails) return closed;
  errno = error;
  return -1;
}

// What is flushed in a watched folder is only noted: the power is never really cut.
int __wrap_fsync(int file) {
  if (!IsWatched(file)) return __real_fsync(file);
  if (watched.limits.on_flush) watched.limits.on_flush();
  if (Fails(file, "fsync", kChanges)) return -1;
  struct stat found;
  if (__real_fstat(file, &found) == 0) watched.flushed[found.st_ino] = found.st_size;
  return 0;
}

int __wrap_renameat2(int from_folder, const char* from, int to_folder, const char* to,
                     unsigned flags) {
  if (Fails(from, "renameat2", kChanges)) return -1;
  if (BetweenVolumes(from, to)) return errno = EXDEV, -1;
  if (IsWatched(from) && watched.limits.rename_replaces) return errno = EINVAL, -1;
  return __real_renameat2(from_folder, from, to_folder, to, flags);
}
}
