#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_jpeg_library.h"
#include "platform/posix/posix_path.h"
#include "platform/posix/posix_picture_codec.h"
#include "platform/posix/temporary_files.h"
#include "platform/system.h"

namespace tarnwell {
namespace {

// The value of an environment variable that must be an absolute path; empty otherwise.
std::string FolderFromEnvironment(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr && value[0] == '/' ? value : "";
}

}  // namespace

std::unique_ptr<Files> MakeSystemFiles() { return std::make_unique<PosixFiles>(); }

std::unique_ptr<PictureCodec> MakeSystemPictureCodec() {
  return std::make_unique<PosixPictureCodec>();
}

std::unique_ptr<JpegLibrary> MakeSystemJpegLibrary() {
  return std::make_unique<PosixJpegLibrary>();
}

std::unique_ptr<Clock> MakeSystemClock() { return std::make_unique<PosixClock>(); }

std::string SystemDataFolder() {
  std::string folder = FolderFromEnvironment("XDG_DATA_HOME");
  if (folder.empty()) {
    folder = FolderFromEnvironment("HOME");
    if (folder.empty()) return {};
    folder += "/.local/share";
  }
  return FromSystemPath(folder + "/tarnwell-pocket/");
}

int SystemProcessorCount() {
  cpu_set_t allowed;
  if (sched_getaffinity(0, sizeof allowed, &allowed) == 0) return std::max(CPU_COUNT(&allowed), 1);
  return static_cast<int>(std::max(std::thread::hardware_concurrency(), 1u));
}

std::uint64_t SystemMemoryBytes() {
  const long pages = sysconf(_SC_PHYS_PAGES);
  const long page_size = sysconf(_SC_PAGESIZE);
  if (pages < 0 || page_size < 0) return 0;
  std::uint64_t bytes = static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(page_size);
  // Less may be granted to this process, or to the container that it runs in.
  rlimit granted = {};
  if (getrlimit(RLIMIT_AS, &granted) == 0 && granted.rlim_cur != RLIM_INFINITY) {
    bytes = std::min<std::uint64_t>(bytes, granted.rlim_cur);
  }
  std::ifstream container("/sys/fs/cgroup/memory.max");
  std::uint64_t container_bytes = 0;  // "max", for no limit, is no number
  if (container >> container_bytes) bytes = std::min(bytes, container_bytes);
  return bytes;
}

int SystemTerminalColumns() {
  winsize size = {};
  const bool told = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return told ? size.ws_col : kUsualTerminalColumns;
}

int DeleteStrayTemporaries(const std::string& folder) {
  const Result<std::string> system_folder = ToSystemPath(folder);
  return system_folder.ok() ? DeleteStraysIn(*system_folder) : 0;
}

}  // namespace tarnwell
