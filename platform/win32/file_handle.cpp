#include "platform/win32/file_handle.h"

#include <algorithm>
#include <utility>

namespace tarnwell {

FileHandle FileHandle::Open(const std::wstring& path, DWORD access, DWORD share,
                            DWORD disposition) {
  HANDLE handle = INVALID_HANDLE_VALUE;
  const DWORD error = RetryWhileInUse([&] {
    handle = CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                         nullptr);
    return handle != INVALID_HANDLE_VALUE;
  });
  return FileHandle(handle, error);
}

FileHandle::FileHandle(FileHandle&& other) noexcept
    : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)), error_(other.error_) {}

DWORD FileHandle::Write(std::string_view bytes) {
  constexpr std::size_t kMostAtOnce = std::size_t{1} << 26;
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto length = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (!WriteFile(handle_, bytes.data(), length, &written, nullptr)) return GetLastError();
    if (written == 0) return ERROR_DISK_FULL;
    bytes.remove_prefix(written);
  }
  return ERROR_SUCCESS;
}

DWORD FileHandle::Flush() { return FlushFileBuffers(handle_) ? ERROR_SUCCESS : GetLastError(); }

void FileHandle::Close() {
  if (is_open()) CloseHandle(handle_);
  handle_ = INVALID_HANDLE_VALUE;
}

DWORD WriteNewFile(const std::wstring& path, std::string_view bytes, const GoOn& go_on) {
  constexpr std::size_t kPieceBytes = std::size_t{1} << 22;
  FileHandle file = FileHandle::Open(path, GENERIC_WRITE, 0, CREATE_NEW);
  if (!file.is_open()) return file.error();
  DWORD error = ERROR_SUCCESS;
  while (error == ERROR_SUCCESS && !bytes.empty()) {
    const std::string_view piece = bytes.substr(0, kPieceBytes);
    error = go_on(1) ? file.Write(piece) : ERROR_CANCELLED;
    bytes.remove_prefix(piece.size());
  }
  if (error == ERROR_SUCCESS) error = file.Flush();
  file.Close();
  if (error != ERROR_SUCCESS) DeleteFileW(path.c_str());
  return error;
}

}  // namespace tarnwell
