#include "platform/win32/temporary_files.h"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

#include "platform/first_use.h"
#include "platform/win32/utf16.h"
#include "platform/win32/wide_path.h"

namespace tarnwell {
namespace {

struct TemporaryName {
  unsigned long process = 0;
  unsigned long counter = 0;
  unsigned long session = 0;
};

std::optional<TemporaryName> ParseTemporaryName(const std::string& name) {
  TemporaryName parsed;
  int length = 0;
  const int read = std::sscanf(name.c_str(), "~tp%10lu-%10lu-%8lx.tmp%n", &parsed.process,
                               &parsed.counter, &parsed.session, &length);
  if (read != 3 || static_cast<std::size_t>(length) != name.size()) return std::nullopt;
  return parsed;
}

constexpr unsigned long kPlaceBits = 0xFFFF0000;

// Where numbers of processes mean the same: this computer.
unsigned long Place() {
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
  DWORD length = MAX_COMPUTERNAME_LENGTH + 1;
  GetComputerNameW(name, &length);
  return static_cast<unsigned long>(std::hash<std::wstring>()(name)) & kPlaceBits;
}

// And when this process began: numbers are given again, but not at the same time.
unsigned long Session() {
  FILETIME began = {}, ended, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &began, &ended, &kernel, &user);
  return Place() | ((began.dwLowDateTime >> 16) & ~kPlaceBits);
}

bool IsOlderThanADay(const FILETIME& written) {
  FILETIME now = {};
  GetSystemTimeAsFileTime(&now);
  const auto ticks = [](const FILETIME& time) {
    return std::int64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
  };
  constexpr std::int64_t kTicksPerDay = 24LL * 60 * 60 * 10'000'000;
  return ticks(now) - ticks(written) > kTicksPerDay;
}

// Whether the process that was given this name may still run: one elsewhere, for a day.
bool IsInUse(const TemporaryName& name, const FILETIME& written) {
  if ((name.session ^ Session()) & kPlaceBits) return !IsOlderThanADay(written);
  if (name.process == GetCurrentProcessId()) return name.session == Session();
  const HANDLE opened = OpenProcess(SYNCHRONIZE, FALSE, name.process);
  if (opened == nullptr) return GetLastError() != ERROR_INVALID_PARAMETER;
  const bool runs = WaitForSingleObject(opened, 0) == WAIT_TIMEOUT;
  CloseHandle(opened);
  return runs;
}

}  // namespace

std::string NewTemporaryIn(const std::string& folder) {
  if (IsFirstUseOf(folder)) DeleteStraysIn(folder);
  static std::atomic<unsigned long> counter = 0;
  char name[64];
  std::snprintf(name, sizeof name, "~tp%lu-%lu-%08lx.tmp", GetCurrentProcessId(), counter++,
                Session());
  return folder + name;
}

int DeleteStraysIn(const std::string& folder) {
  const auto pattern = WidePath(folder + "~tp*.tmp");
  WIN32_FIND_DATAW found;
  const HANDLE search = pattern ? FindFirstFileW(pattern->c_str(), &found) : INVALID_HANDLE_VALUE;
  if (search == INVALID_HANDLE_VALUE) return 0;
  std::vector<std::string> strays;
  do {
    const std::string name = WideToUtf8(found.cFileName).value_or("");
    const auto parsed = ParseTemporaryName(name);
    if (parsed && !IsInUse(*parsed, found.ftLastWriteTime)) strays.push_back(folder + name);
  } while (FindNextFileW(search, &found));
  FindClose(search);
  int deleted = 0;
  for (const std::string& stray : strays) {
    const auto path = WidePath(stray);
    deleted += path && DeleteFileW(path->c_str()) ? 1 : 0;
  }
  return deleted;
}

}  // namespace tarnwell
