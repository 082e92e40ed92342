#include "platform/win32/win32_files.h"

#include <algorithm>
#include <new>
#include <optional>
#include <utility>
#include <windows.h>

#include "platform/line_end.h"
#include "platform/win32/file_handle.h"
#include "platform/win32/file_lock.h"
#include "platform/win32/temporary_files.h"
#include "platform/win32/utf16.h"
#include "platform/win32/wide_path.h"
#include "platform/win32/win32_error.h"

namespace tarnwell {
namespace {

constexpr DWORD kNoFile = INVALID_FILE_ATTRIBUTES;
constexpr std::uint64_t kLongestRead = std::uint64_t{1} << 32;  // as where a caller names no limit

Status InvalidName(const std::string& path) {
  return StatusOfError(path, ERROR_INVALID_NAME, Subject::kFile);
}

Status NoSuch(const std::string& path, Subject subject) {
  return StatusOfError(path, ERROR_FILE_NOT_FOUND, subject);
}

DWORD AttributesOf(const std::string& path) {
  const std::optional<std::wstring> wide = WidePath(path);
  return wide ? GetFileAttributesW(wide->c_str()) : kNoFile;
}

bool IsFolder(DWORD attributes) {
  return attributes != kNoFile && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Where the system refuses access because `path` is a folder, says so.
Status FileError(const std::string& path, DWORD error, Subject subject) {
  if (error == ERROR_ACCESS_DENIED && IsFolder(AttributesOf(path))) {
    return Status::Error(Failure::kOther, path + ": is a folder, not a file");
  }
  return StatusOfError(path, error, subject);
}

// The source of a move exists; what else is wrong lies with the target, unless somebody holds the
// source.
Status MoveError(const std::string& from, const std::string& to, DWORD error) {
  if (error == ERROR_SHARING_VIOLATION) return StatusOfError(from, error, Subject::kFile);
  return StatusOfError(to, error, Subject::kNewFile);
}

// Nanoseconds since 1970. The count from 1601, where the system starts, would not fit.
std::int64_t NanosOf(const FILETIME& time) {
  constexpr std::uint64_t kTicksTo1970 = 116'444'736'000'000'000;
  const std::uint64_t ticks =
      (std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime) - kTicksTo1970;
  return static_cast<std::int64_t>(ticks * 100);  // wraps for absurd dates; only compared
}

// Of either kind of record that the system gives.
template <typename Record>
FolderEntry EntryFrom(const Record& found, std::string name) {
  const bool is_folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const std::uint64_t size = std::uint64_t{found.nFileSizeHigh} << 32 | found.nFileSizeLow;
  return {.name = std::move(name),
          .is_folder = is_folder,
          .size = is_folder ? 0 : size,
          .modified_nanos = NanosOf(found.ftLastWriteTime)};
}

std::optional<FolderEntry> EntryOf(const WIN32_FIND_DATAW& found) {
  const std::wstring_view wide = found.cFileName;
  if (wide == L"." || wide == L"..") return std::nullopt;
  // A name that is no valid UTF-16 could not be opened under any name handed back here.
  std::optional<std::string> name = WideToUtf8(wide);
  if (!name) return std::nullopt;
  return EntryFrom(found, std::move(*name));
}

// Which file or folder a path leads to; nothing when it leads to none.
std::optional<BY_HANDLE_FILE_INFORMATION> IdentityOf(const std::string& path) {
  const std::optional<std::wstring> wide = WidePath(path);
  if (!wide) return std::nullopt;
  const HANDLE handle =
      CreateFileW(wide->c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
  BY_HANDLE_FILE_INFORMATION found;
  const bool known = GetFileInformationByHandle(handle, &found) != 0;
  CloseHandle(handle);
  return known ? std::optional(found) : std::nullopt;
}

// Reads as many bytes as `bytes` has, or fewer where the file has become shorter.
DWORD ReadInto(HANDLE file, std::string& bytes) {
  constexpr std::size_t kMostAtOnce = std::size_t{1} << 26;
  std::size_t done = 0;
  while (done < bytes.size()) {
    DWORD got = 0;
    const auto length = static_cast<DWORD>(std::min(bytes.size() - done, kMostAtOnce));
    if (!ReadFile(file, bytes.data() + done, length, &got, nullptr)) return GetLastError();
    if (got == 0) break;
    done += got;
  }
  bytes.resize(done);
  return ERROR_SUCCESS;
}

DWORD FlushFile(const std::wstring& path) {
  FileHandle file = FileHandle::Open(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING);
  return file.is_open() ? file.Flush() : file.error();
}

DWORD MoveFileTo(const std::wstring& from, const std::wstring& to, DWORD flags) {
  return RetryWhileInUse(
      [&] { return MoveFileExW(from.c_str(), to.c_str(), flags | MOVEFILE_WRITE_THROUGH); });
}

bool IsSameName(const std::string& one, const std::string& other) {
  const std::optional<std::wstring> first = WidePath(one), second = WidePath(other);
  return first && second &&
         CompareStringOrdinal(first->c_str(), -1, second->c_str(), -1, TRUE) == CSTR_EQUAL;
}

// Deletes the file `path` if it is still the one that `then` was told of; ERROR_FILE_INVALID, as
// the system calls a file that was changed from outside, if it is another or has other content.
DWORD DeleteUnchanged(const std::wstring& path, const BY_HANDLE_FILE_INFORMATION& then) {
  const FileHandle file =
      FileHandle::Open(path, DELETE | FILE_READ_ATTRIBUTES, FILE_SHARE_READ, OPEN_EXISTING);
  if (!file.is_open()) return file.error();
  BY_HANDLE_FILE_INFORMATION now = {};
  if (!GetFileInformationByHandle(file.get(), &now)) return GetLastError();
  const bool same =
      now.dwVolumeSerialNumber == then.dwVolumeSerialNumber &&
      now.nFileIndexHigh == then.nFileIndexHigh && now.nFileIndexLow == then.nFileIndexLow &&
      now.nFileSizeHigh == then.nFileSizeHigh && now.nFileSizeLow == then.nFileSizeLow &&
      CompareFileTime(&now.ftLastWriteTime, &then.ftLastWriteTime) == 0;
  if (!same) return ERROR_FILE_INVALID;
  FILE_DISPOSITION_INFO gone = {};
  gone.DeleteFile = TRUE;
  const BOOL deleted =
      SetFileInformationByHandle(file.get(), FileDispositionInfo, &gone, sizeof gone);
  return deleted ? ERROR_SUCCESS : GetLastError();
}

void SetReadOnly(const std::wstring& path, bool read_only) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == kNoFile) return;
  SetFileAttributesW(path.c_str(), read_only ? attributes | FILE_ATTRIBUTE_READONLY
                                             : attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
}

}  // namespace

bool Win32Files::FileExists(const std::string& path) {
  if (path.ends_with('\\')) return false;
  const DWORD attributes = AttributesOf(path);
  return attributes != kNoFile && !IsFolder(attributes);
}

bool Win32Files::FolderExists(const std::string& path) { return IsFolder(AttributesOf(path)); }

bool Win32Files::NameIsTaken(const std::string& path) { return AttributesOf(path) != kNoFile; }

bool Win32Files::IsSameFolder(const std::string& one, const std::string& other) {
  const auto first = IdentityOf(one), second = IdentityOf(other);
  // Some file systems number nothing, and 0 stands for every file there; some tell nothing at all.
  const bool numbered =
      first && second && (first->nFileIndexHigh != 0 || first->nFileIndexLow != 0);
  if (!numbered) return FolderExists(one) && IsSameName(one, other);
  return IsFolder(first->dwFileAttributes) &&
         first->dwVolumeSerialNumber == second->dwVolumeSerialNumber &&
         first->nFileIndexHigh == second->nFileIndexHigh &&
         first->nFileIndexLow == second->nFileIndexLow;
}

Result<FolderEntry> Win32Files::Find(const std::string& path) {
  const std::optional<std::wstring> wide = WidePath(path);
  if (!wide) return InvalidName(path);
  WIN32_FILE_ATTRIBUTE_DATA found;
  if (!GetFileAttributesExW(wide->c_str(), GetFileExInfoStandard, &found)) {
    return StatusOfError(path, GetLastError(), Subject::kFile);
  }
  return EntryFrom(found, path.substr(path.rfind('\\') + 1));
}

Result<std::string> Win32Files::Read(const std::string& path, std::uint64_t most_bytes) {
  const std::optional<std::wstring> wide = WidePath(path);
  if (!wide) return NoSuch(path, Subject::kFile);
  // Writers are kept out while it is read, and a file that is being written cannot be opened: a
  // half-copied photo must not pass for a whole one.
  const FileHandle file =
      FileHandle::Open(*wide, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE, OPEN_EXISTING);
  if (!file.is_open()) return FileError(path, file.error(), Subject::kFile);
  LARGE_INTEGER size;
  if (GetFileType(file.get()) != FILE_TYPE_DISK) return NoSuch(path, Subject::kFile);
  if (!GetFileSizeEx(file.get(), &size)) return FileError(path, GetLastError(), Subject::kFile);
  const auto length = static_cast<std::uint64_t>(size.QuadPart);
  if (length > most_bytes)
    return Status::Error(Failure::kTooLarge, path + ": the file is too large");
  std::string bytes;
  try {
    if (length > bytes.max_size()) throw std::bad_alloc();
    bytes.resize(static_cast<std::size_t>(length));
  } catch (const std::bad_alloc&) {
    return StatusOfError(path, ERROR_NOT_ENOUGH_MEMORY, Subject::kFile);
  }
  const DWORD error = ReadInto(file.get(), bytes);
  if (error != ERROR_SUCCESS) return FileError(path, error, Subject::kFile);
  return bytes;
}

Result<std::vector<FolderEntry>> Win32Files::List(const std::string& folder) {
  if (!FolderExists(folder)) return NoSuch(folder, Subject::kFolder);
  const std::optional<std::wstring> pattern =
      WidePath(folder.ends_with('\\') ? folder + "*" : folder + "\\*");
  if (!pattern) return InvalidName(folder);
  std::vector<FolderEntry> entries;
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(pattern->c_str(), &found);
  DWORD error = search == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_SUCCESS;
  while (error == ERROR_SUCCESS) {
    if (std::optional<FolderEntry> entry = EntryOf(found)) entries.push_back(std::move(*entry));
    if (!FindNextFileW(search, &found)) error = GetLastError();
  }
  if (search != INVALID_HANDLE_VALUE) FindClose(search);
  // The root of an empty drive has not even "." and "..".
  if (error != ERROR_NO_MORE_FILES && error != ERROR_FILE_NOT_FOUND) {
    return StatusOfError(folder, error, Subject::kFolder);
  }
  return entries;
}

Status Win32Files::CreateFolder(const std::string& folder) {
  const std::optional<std::wstring> wide = WidePath(folder);
  if (!wide) return InvalidName(folder);
  if (CreateDirectoryW(wide->c_str(), nullptr)) return Status::Ok();
  return StatusOfError(folder, GetLastError(), Subject::kNewFolder);
}

Status WriteNewFile(const std::string& path, std::string_view bytes, const GoOn& go_on) {
  const std::optional<std::wstring> wide = WidePath(path);
  if (!wide) return StatusOfError(path, ERROR_INVALID_NAME, Subject::kNewFile);
  const DWORD error = WriteNewFile(*wide, bytes, go_on);
  return error == ERROR_SUCCESS ? Status::Ok() : FileError(path, error, Subject::kNewFile);
}

Status Win32Files::Replace(const std::string& path, std::string_view bytes) {
  const std::string temporary = TemporaryBeside(path);
  const std::optional<std::wstring> target = WidePath(path);
  const std::optional<std::wstring> beside = WidePath(temporary);
  if (!target || !beside) return InvalidName(path);
  if (const DWORD error = WriteNewFile(*beside, bytes); error != ERROR_SUCCESS) {
    return FileError(path, error, Subject::kNewFile);
  }
  const DWORD error = MoveFileTo(*beside, *target, MOVEFILE_REPLACE_EXISTING);
  if (error == ERROR_SUCCESS) return Status::Ok();
  const Status status = FileError(path, error, Subject::kNewFile);
  DeleteFileW(beside->c_str());
  return status;
}

Status Win32Files::Append(const std::string& path, std::string_view lines) {
  const std::optional<std::wstring> wide = WidePath(path);
  if (!wide) return InvalidName(path);
  const FileLock lock(*wide);
  if (lock.error() != ERROR_SUCCESS) return FileError(path, lock.error(), Subject::kNewFile);
  Result<std::string> bytes = std::string();
  if (FileExists(path)) bytes = Read(path, kLongestRead);
  if (!bytes.ok()) return bytes.status;
  return Replace(path, bytes->append(MissingLineEnd(*bytes)).append(lines));
}

Status Win32Files::Update(const std::string& path, const FileChange& change,
                          std::uint64_t most_bytes) {
  const std::optional<std::wstring> wide = WidePath(path);
  if (!wide || !FileExists(path)) return NoSuch(path, Subject::kFile);
  const FileLock lock(*wide);
  if (lock.error() != ERROR_SUCCESS) return FileError(path, lock.error(), Subject::kFile);
  const Result<std::string> bytes = Read(path, most_bytes);
  if (!bytes.ok()) return bytes.status;
  const std::optional<std::string> changed = change(*bytes);
  return changed ? Replace(path, *changed) : Status::Ok();
}

std::string Win32Files::TemporaryBeside(const std::string& path) {
  return NewTemporaryIn(path.substr(0, path.find_last_of("\\/:") + 1));
}

Status Win32Files::Publish(const std::string& temporary, const std::string& path) {
  const std::optional<std::wstring> from = WidePath(temporary);
  const std::optional<std::wstring> to = WidePath(path);
  if (!from) return InvalidName(temporary);
  DWORD error = to ? FlushFile(*from) : ERROR_INVALID_NAME;
  if (error == ERROR_FILE_NOT_FOUND) return NoSuch(temporary, Subject::kFile);
  if (error == ERROR_SUCCESS) error = MoveFileTo(*from, *to, 0);
  if (error == ERROR_SUCCESS) return Status::Ok();
  DeleteFileW(from->c_str());
  return StatusOfError(path, error, Subject::kNewFile);
}

Status Win32Files::Move(const std::string& from, const std::string& to) {
  const std::optional<std::wstring> source = WidePath(from);
  const std::optional<std::wstring> target = WidePath(to);
  if (!source || !FileExists(from)) return NoSuch(from, Subject::kFile);
  if (!target) return InvalidName(to);
  const DWORD error = MoveFileTo(*source, *target, 0);
  if (error == ERROR_SUCCESS) return Status::Ok();
  if (error == ERROR_NOT_SAME_DEVICE) return MoveByCopy(from, to);
  return MoveError(from, to, error);
}

Status Win32Files::MoveByCopy(const std::string& from, const std::string& to) {
  const std::string temporary = TemporaryBeside(to);
  const std::wstring source = WidePath(from).value_or(L"");
  const std::wstring target = WidePath(to).value_or(L"");
  const std::optional<std::wstring> beside = WidePath(temporary);
  if (!beside) return InvalidName(to);
  // Held, the source can be neither changed nor exchanged before the copy is safe.
  FileHandle held = FileHandle::Open(source, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING);
  if (!held.is_open()) return FileError(from, held.error(), Subject::kFile);
  BY_HANDLE_FILE_INFORMATION copied = {};
  if (!GetFileInformationByHandle(held.get(), &copied)) {
    return FileError(from, GetLastError(), Subject::kFile);
  }
  if (!CopyFileExW(source.c_str(), beside->c_str(), nullptr, nullptr, nullptr,
                   COPY_FILE_FAIL_IF_EXISTS)) {
    const DWORD error = GetLastError();
    DeleteFileW(beside->c_str());
    return MoveError(from, to, error);
  }
  // A read-only file can be neither flushed nor deleted.
  const bool read_only = (AttributesOf(from) & FILE_ATTRIBUTE_READONLY) != 0;
  if (read_only) SetReadOnly(*beside, false);
  if (const Status published = Publish(temporary, to); !published.ok()) return published;
  held.Close();
  if (read_only) SetReadOnly(source, false);
  const DWORD error = DeleteUnchanged(source, copied);
  // Where somebody else was quicker, the copy is the only one.
  if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) {
    // Nothing is moved then: the file must not be in both places.
    DeleteFileW(target.c_str());
    if (read_only) SetReadOnly(source, true);
    if (error == ERROR_FILE_INVALID) {
      return Status::Error(Failure::kOther, from + ": was changed while it was moved");
    }
    return FileError(from, error, Subject::kFile);
  }
  if (read_only) SetReadOnly(target, true);
  return Status::Ok();
}

Status Win32Files::Delete(const std::string& path) {
  const std::optional<std::wstring> wide = WidePath(path);
  if (!wide) return NoSuch(path, Subject::kFile);
  const DWORD error = RetryWhileInUse([&] { return DeleteFileW(wide->c_str()); });
  return error == ERROR_SUCCESS ? Status::Ok() : FileError(path, error, Subject::kFile);
}

Status Win32Files::DeleteFolder(const std::string& path) {
  const std::optional<std::wstring> wide = WidePath(path);
  if (!wide) return NoSuch(path, Subject::kFolder);
  if (RemoveDirectoryW(wide->c_str())) return Status::Ok();
  return StatusOfError(path, GetLastError(), Subject::kFolder);
}

std::string Win32Files::Absolute(const std::string& path) {
  const bool has_root = path.starts_with("\\\\") || path.find(":\\") == 1;
  if (has_root && path.find('/') == path.npos) return path;
  const std::optional<std::wstring> wide = Utf8ToWide(path);
  if (!wide || wide->empty()) return path;
  const std::wstring full = FullWidePath(*wide);
  return full.empty() ? path : WideToUtf8(full).value_or(path);
}

std::string Win32Files::Display(const std::string& path) { return path; }

}  // namespace tarnwell
