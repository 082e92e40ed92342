#include "platform/posix/posix_path.h"

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

namespace tarnwell {
namespace {

constexpr char kBackslashInName = '\0';

// Whether `word`, read as the system spells it, leads through an existing name with a backslash.
bool LeadsThroughNameWithBackslash(const std::string& word) {
  for (std::size_t at = 0; at < word.size();) {
    const std::size_t end = std::min(word.find('/', at), word.size());
    const std::string_view name(word.data() + at, end - at);
    struct stat found;
    if (name.find('\\') != name.npos && lstat(word.substr(0, end).c_str(), &found) == 0)
      return true;
    at = end + 1;
  }
  return false;
}

// `path`, absolute, without empty names, lone dots and steps back, so that rules on names see none
// of them. A step back leads out of where a link leads to, as the system takes it.
std::string WithoutIdleParts(const std::string& path) {
  std::string kept;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t end = std::min(path.find('/', at), path.size());
    const std::string name = path.substr(at, end - at);
    at = end + 1;
    if (name.empty() || name == ".") continue;
    kept += '/' + name;
    if (name != "..") continue;
    std::error_code failed;
    const std::filesystem::path real = std::filesystem::canonical(kept, failed);
    if (failed) return path;  // it leads nowhere, which is told when it is used
    kept = real == "/" ? "" : real.string();
  }
  return kept.empty() || path.back() == '/' ? kept + '/' : kept;
}

}  // namespace

Result<std::string> ToSystemPath(const std::string& path) {
  if (path.empty()) return Status::Error(Failure::kNotFound, "(no name): a name is missing");
  if (path.find(kBackslashInName) != path.npos) {
    return Status::Error(
        Failure::kUnsupported,
        DisplayPath(path) + ": names that contain a backslash cannot be used; rename it first");
  }
  std::string spelled = path;
  std::replace(spelled.begin(), spelled.end(), '\\', '/');
  return spelled;
}

std::string FromSystemPath(std::string_view system_path) {
  std::string spelled(system_path);
  std::replace(spelled.begin(), spelled.end(), '\\', kBackslashInName);
  std::replace(spelled.begin(), spelled.end(), '/', '\\');
  return spelled;
}

std::string DisplayPath(const std::string& path) {
  std::string spelled = path;
  std::replace(spelled.begin(), spelled.end(), '\\', '/');
  std::replace(spelled.begin(), spelled.end(), kBackslashInName, '\\');
  return spelled;
}

std::string AbsolutePath(const std::string& path) {
  if (path.empty()) return path;
  std::string spelled = path;
  if (!LeadsThroughNameWithBackslash(path)) std::replace(spelled.begin(), spelled.end(), '\\', '/');
  if (spelled.front() != '/') {
    std::error_code failed;
    const std::string current = std::filesystem::current_path(failed).string();
    if (failed) return FromSystemPath(spelled);
    spelled = current + '/' + spelled;
  }
  return FromSystemPath(WithoutIdleParts(spelled));
}

std::string SystemFolderOf(const std::string& system_path) {
  const std::size_t slash = system_path.rfind('/');
  return slash == system_path.npos ? "./" : system_path.substr(0, slash + 1);
}

}  // namespace tarnwell
