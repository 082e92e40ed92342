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
    {ERROR_ALREADY_EXISTS, Failure::kExists, "something of that name exists already"},
    {ERROR_FILE_EXISTS, Failure::kExists, "something of that name exists already"},
    {ERROR_ACCESS_DENIED, Failure::kNoAccess, "no permission"},
    {ERROR_WRITE_PROTECT, Failure::kNoAccess, "the disk is read-only"},
    {ERROR_SHARING_VIOLATION, Failure::kNoAccess, "in use by another program"},
    {ERROR_LOCK_VIOLATION, Failure::kNoAccess, "in use by another program"},
    {ERROR_DISK_FULL, Failure::kDiskFull, "disk full"},
    {ERROR_HANDLE_DISK_FULL, Failure::kDiskFull, "disk full"},
    {kDiskQuotaExceeded, Failure::kDiskFull, "your share of the disk is full"},
    {ERROR_NOT_ENOUGH_MEMORY, Failure::kTooLarge, "not enough memory"},
    {ERROR_OUTOFMEMORY, Failure::kTooLarge, "not enough memory"},
    {ERROR_DIR_NOT_EMPTY, Failure::kOther, "the folder is not empty"},
    {ERROR_INVALID_NAME, Failure::kOther, "not a valid file name"},
    {ERROR_BAD_PATHNAME, Failure::kOther, "not a valid file name"},
    {ERROR_FILENAME_EXCED_RANGE, Failure::kOther, "the name is too long"},
};

bool IsMissing(DWORD code) {
  return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ||
         code == ERROR_INVALID_DRIVE || code == ERROR_DIRECTORY || code == ERROR_BAD_NETPATH ||
         code == ERROR_BAD_NET_NAME;
}

const char* MissingText(Subject subject) {
  switch (subject) {
    case Subject::kFile:
      return "no such file";
    case Subject::kNewFile:
      return "its folder does not exist";
    case Subject::kFolder:
      return "no such folder";
    case Subject::kNewFolder:
      return "the folder above it does not exist";
  }
  return "no such file";
}

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
  if (IsMissing(code)) {
    return Status::Error(Failure::kNotFound, path + ": " + MissingText(subject));
  }
  for (const Reason& reason : kReasons) {
    if (reason.code == code) return Status::Error(reason.failure, path + ": " + reason.text);
  }
  return Status::Error(Failure::kOther, path + ": " + SystemText(code));
}

}  // namespace tarnwell
