#include "platform/win32/win32_error.h"

#include <windows.h>

#include "platform/win32/utf16.h"

namespace tarnwell {
namespace {

// Missing in some headers.
constexpr DWORD kDiskQuotaExceeded = 1295;

struct Reason {
  DWORD code;
  FileReason reason;
};

constexpr Reason kReasons[] = {
    {ERROR_FILE_NOT_FOUND, FileReason::kMissing},
    {ERROR_PATH_NOT_FOUND, FileReason::kMissing},
    {ERROR_INVALID_DRIVE, FileReason::kMissing},
    {ERROR_DIRECTORY, FileReason::kMissing},
    {ERROR_BAD_NETPATH, FileReason::kMissing},
    {ERROR_BAD_NET_NAME, FileReason::kMissing},
    {ERROR_ALREADY_EXISTS, FileReason::kTaken},
    {ERROR_FILE_EXISTS, FileReason::kTaken},
    {ERROR_ACCESS_DENIED, FileReason::kNoPermission},
    {ERROR_WRITE_PROTECT, FileReason::kReadOnlyDisk},
    {ERROR_SHARING_VIOLATION, FileReason::kInUse},
    {ERROR_LOCK_VIOLATION, FileReason::kInUse},
    {ERROR_DISK_FULL, FileReason::kDiskFull},
    {ERROR_HANDLE_DISK_FULL, FileReason::kDiskFull},
    {kDiskQuotaExceeded, FileReason::kQuotaUsedUp},
    {ERROR_NOT_ENOUGH_MEMORY, FileReason::kNoMemory},
    {ERROR_OUTOFMEMORY, FileReason::kNoMemory},
    {ERROR_DIR_NOT_EMPTY, FileReason::kFolderNotEmpty},
    {ERROR_FILENAME_EXCED_RANGE, FileReason::kNameTooLong},
    {ERROR_INVALID_NAME, FileReason::kInvalidName},
    {ERROR_BAD_PATHNAME, FileReason::kInvalidName},
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

Status StatusOfError(const std::string& path, std::uint32_t code, Subject subject) {
  if (code == ERROR_CANCELLED) return Status::Cancelled(path);
  for (const Reason& reason : kReasons) {
    if (reason.code == code) return FileStatus(reason.reason, path, subject);
  }
  return Status::Error(Failure::kOther, path + ": " + SystemText(code));
}

}  // namespace tarnwell
