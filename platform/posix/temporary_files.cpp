#include "platform/posix/temporary_files.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <dirent.h>
#include <memory>
#include <sys/random.h>
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

unsigned Session() {
  static const unsigned session = [] {
    std::uint32_t random = 0;
    if (getrandom(&random, sizeof random, GRND_NONBLOCK) < 0) random = 0;
    return random;
  }();
  return session;
}

// Whether the process that was given this name still runs.
bool IsInUse(const TemporaryName& name) {
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
    if (name && !IsInUse(*name)) strays.push_back(folder + entry->d_name);
  }
  int deleted = 0;
  for (const std::string& stray : strays) deleted += unlink(stray.c_str()) == 0 ? 1 : 0;
  return deleted;
}

}  // namespace tarnwell
