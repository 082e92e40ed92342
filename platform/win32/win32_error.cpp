#include "platform/win32/win32_error.h"

#include <windows.h>

#include "platform/win32/utf16.h"

namespace tarnwell {
namespace {

// Missing in some headers.
constexpr DWORD kDiskQuotaExceeded = 1295;

struct Reason {
  DWORD code;
  Failure failure;
  const char* text;
};

constexpr Reason kReasons[] = {
    {ERROR_FILE_NOT_FOUND, Failure::kNotFound, "no such file"},
    {ERROR_PATH_NOT_FOUND, Failure::kNotFound, "no such file"},
    {ERROR_INVALID_DRIVE, Failure::kNotFound, "no such file"},
    {ERROR_BAD_NETPATH, Failure::kNotFound, "no such file"},
    {ERROR_BAD_NET_NAME, Failure::kNotFound, "no such file"},
    {ERROR_DIRECTORY, Failure::kNotFound, "no such folder"},
    {ERROR_ALREADY_EXISTS, Failure::kExists, "already exists"},
    {ERROR_FILE_EXISTS, Failure::kExists, "already exists"},
    {ERROR_ACCESS_DENIED, Failure::kNoAccess, "no permission"},
    {ERROR_WRITE_PROTECT, Failure::kNoAccess, "the disk is write-protected"},
    {ERROR_SHARING_VIOLATION, Failure::kNoAccess, "in use by another program"},
    {ERROR_LOCK_VIOLATION, Failure::kNoAccess, "in use by another program"},
    {ERROR_DISK_FULL, Failure::kDiskFull, "disk full"},
    {ERROR_HANDLE_DISK_FULL, Failure::kDiskFull, "disk full"},
    {kDiskQuotaExceeded, Failure::kDiskFull, "disk full"},
    {ERROR_NOT_ENOUGH_MEMORY, Failure::kTooLarge, "not enough memory"},
    {ERROR_OUTOFMEMORY, Failure::kTooLarge, "not enough memory"},
    {ERROR_DIR_NOT_EMPTY, Failure::kOther, "the folder is not empty"},
    {ERROR_INVALID_NAME, Failure::kOther, "not a valid file name"},
    {ERROR_BAD_PATHNAME, Failure::kOther, "not a valid file name"},
    {ERROR_FILENAME_EXCED_RANGE, Failure::kOther, "the name is too long"},
};

// The system's sentence as the second half of ours: one line, no full stop.
std::string SystemText(DWORD code) {
  wchar_t text[512];
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
      nullptr, code, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
  std::wstring_view line(text, length);
  while (!line.empty() && (line.back() <= L' ' || line.back() == L'.')) line.remove_suffix(1);
  std::string narrow = WideToUtf8(line).value_or("");
  return narrow.empty() ? "system error " + std::to_string(code) : narrow;
}

}  // namespace

Status StatusOfError(const std::string& path, std::uint32_t code) {
  for (const Reason& reason : kReasons) {
    if (reason.code == code) return Status::Error(reason.failure, path + ": " + reason.text);
  }
  return Status::Error(Failure::kOther, path + ": " + SystemText(code));
}

}  // namespace tarnwell
