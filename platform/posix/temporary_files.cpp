#include "platform/posix/temporary_files.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <dirent.h>
#include <functional>
#include <memory>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>
#include <vector>

#include "platform/first_use.h"

namespace tarnwell {
namespace {

struct TemporaryName {
  long process = 0;
  unsigned counter = 0;
  unsigned session = 0;
};

std::optional<TemporaryName> ParseTemporaryName(const std::string& name) {
  TemporaryName parsed;
  int length = 0;
  const int read = std::sscanf(name.c_str(), ".tarnwell-%9ld-%10u-%8x.tmp%n", &parsed.process,
                               &parsed.counter, &parsed.session, &length);
  if (read != 3 || static_cast<std::size_t>(length) != name.size() || parsed.process < 1) {
    return std::nullopt;
  }
  return parsed;
}

constexpr unsigned kPlaceBits = 0xFFFF0000;

// Where numbers of processes mean the same: this machine, and on it the container.
unsigned Place() {
  utsname machine = {};
  uname(&machine);
  char processes[64] = {};
  if (readlink("/proc/self/ns/pid", processes, sizeof processes - 1) < 0) processes[0] = 0;
  const std::string place = std::string(machine.nodename) + "/" + processes;
  return static_cast<unsigned>(std::hash<std::string>()(place)) & kPlaceBits;
}

unsigned Session() {
  static const unsigned session = [] {
    std::uint32_t random = 0;
    if (getrandom(&random, sizeof random, GRND_NONBLOCK) < 0) random = 0;
    return Place() | (random & ~kPlaceBits);
  }();
  return session;
}

// Whether the process that was given this name may still run: one elsewhere, for a day.
bool IsInUse(const TemporaryName& name, const std::string& path) {
  if ((name.session ^ Session()) & kPlaceBits) {
    constexpr std::time_t kDay = 24 * 60 * 60;
    struct stat found;
    return lstat(path.c_str(), &found) != 0 || std::time(nullptr) - found.st_mtime < kDay;
  }
  if (name.process == getpid()) return name.session == Session();
  return kill(static_cast<pid_t>(name.process), 0) == 0 || errno != ESRCH;
}

}  // namespace

std::string NewTemporaryIn(const std::string& folder) {
  if (IsFirstUseOf(folder)) DeleteStraysIn(folder);
  static std::atomic<unsigned> counter = 0;
  char name[64];
  std::snprintf(name, sizeof name, ".tarnwell-%ld-%u-%08x.tmp", static_cast<long>(getpid()),
                counter++, Session());
  return folder + name;
}

std::optional<long> ProcessOfTemporary(const std::string& name) {
  const auto parsed = ParseTemporaryName(name);
  return parsed ? std::optional(parsed->process) : std::nullopt;
}

int DeleteStraysIn(const std::string& folder) {
  // Names only: a folder may hold thousands of photos that nobody asked about.
  const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.empty() ? "." : folder.c_str()),
                                                 &closedir);
  if (!open) return 0;
  std::vector<std::string> strays;
  while (const dirent* entry = readdir(open.get())) {
    const auto name = ParseTemporaryName(entry->d_name);
    if (name && !IsInUse(*name, folder + entry->d_name)) strays.push_back(folder + entry->d_name);
  }
  int deleted = 0;
  for (const std::string& stray : strays) deleted += unlink(stray.c_str()) == 0 ? 1 : 0;
  return deleted;
}

}  // namespace tarnwell
