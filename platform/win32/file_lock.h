#pragma once

#include <string>
#include <windows.h>

namespace tarnwell {

// Holds everybody else off who takes the lock of the same file, in this program or another, also on
// another machine that shares the folder. The lock is a file of its own beside the one it protects:
// this system replaces no file while somebody who waits for it holds it open. It goes with its
// holder, even one that crashes.
class FileLock {
 public:
  // `path` is the wide form of the file's path. Waits for its turn, up to half a minute.
  explicit FileLock(const std::wstring& path);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  DWORD error() const { return error_; }  // ERROR_SUCCESS while the lock is held

 private:
  HANDLE handle_ = INVALID_HANDLE_VALUE;
  DWORD error_ = ERROR_SUCCESS;
};

}  // namespace tarnwell
