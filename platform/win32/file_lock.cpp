#include "platform/win32/file_lock.h"

namespace tarnwell {
namespace {

constexpr DWORD kPauseMs = 2;
constexpr int kMostPauses = 15'000;
// While the last holder's file is being deleted, opening it is refused like a file without rights.
constexpr int kMostRefusals = 100;

HANDLE OpenAlone(const std::wstring& path) {
  return CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                     FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
}

}  // namespace

FileLock::FileLock(const std::wstring& path) {
  const std::wstring lock = path + L".lock";
  int refusals = 0;
  for (int pauses = 0;; ++pauses) {
    handle_ = OpenAlone(lock);
    error_ = handle_ == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_SUCCESS;
    const bool may_pass = error_ == ERROR_SHARING_VIOLATION ||
                          (error_ == ERROR_ACCESS_DENIED && ++refusals <= kMostRefusals);
    if (!may_pass || pauses == kMostPauses) return;
    Sleep(kPauseMs);
  }
}

FileLock::~FileLock() {
  if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
}

}  // namespace tarnwell
