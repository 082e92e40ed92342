#include "platform/win32/temporary_files.h"

#include <atomic>
#include <cstdio>
#include <optional>
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

// When this process began: numbers of processes are given again, but not at the same time.
unsigned long Session() {
  FILETIME began = {}, ended, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &began, &ended, &kernel, &user);
  return began.dwLowDateTime;
}

// Whether the process that was given this name still runs.
bool IsInUse(const TemporaryName& name) {
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
    if (parsed && !IsInUse(*parsed)) strays.push_back(folder + name);
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
