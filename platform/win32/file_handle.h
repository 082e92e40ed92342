#pragma once

#include <string>
#include <string_view>
#include <windows.h>

#include "platform/events.h"

namespace tarnwell {

// An open file, closed at the end. The calls return the error code of the system, ERROR_SUCCESS
// when all went well.
class FileHandle {
 public:
  // Another program (a virus scanner, an indexer, a second instance) may hold a file for a moment
  // after it was written, so opening it is tried for a quarter of a second before it counts as in
  // use.
  static FileHandle Open(const std::wstring& path, DWORD access, DWORD share, DWORD disposition);

  FileHandle(FileHandle&& other) noexcept;
  FileHandle& operator=(FileHandle&&) = delete;
  ~FileHandle() { Close(); }

  bool is_open() const { return handle_ != INVALID_HANDLE_VALUE; }
  DWORD error() const { return error_; }  // why it is not open
  HANDLE get() const { return handle_; }

  DWORD Write(std::string_view bytes);
  DWORD Flush();
  void Close();

 private:
  FileHandle(HANDLE handle, DWORD error) : handle_(handle), error_(error) {}

  HANDLE handle_;
  DWORD error_;
};

// Runs `call` (true on success, otherwise GetLastError tells) again while the file is in use, in
// the same way. Returns the error code of the last attempt.
template <typename Call>
DWORD RetryWhileInUse(Call call) {
  constexpr int kAttempts = 10;
  constexpr DWORD kPauseMs = 25;
  for (int attempt = 1;; ++attempt) {
    if (call()) return ERROR_SUCCESS;
    const DWORD error = GetLastError();
    const bool in_use = error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
    if (!in_use || attempt == kAttempts) return error;
    Sleep(kPauseMs);
  }
}

// Makes the file `path`, which must not exist, hold `bytes`, flushed. Returns the error code of the
// system, ERROR_CANCELLED when `go_on` ended it; no file is left then.
DWORD WriteNewFile(const std::wstring& path, std::string_view bytes, const GoOn& go_on = ToTheEnd);

}  // namespace tarnwell
