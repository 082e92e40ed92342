#include "automation/free_name.h"

#include "platform/files.h"

namespace tarnwell {

std::string NumberedName(const std::string& path, int number) {
  if (number == 0) return path;
  const std::size_t first_dot = path.find('.');
  const std::string tail = first_dot == std::string::npos ? "" : path.substr(first_dot);
  return path.substr(0, path.rfind('.')) + "~" + std::to_string(number) + tail;
}

std::string FreeName(const std::string& path, Files& files) {
  for (int number = 0;; ++number) {
    std::string name = NumberedName(path, number);
    if (!files.FileExists(name) && !files.FolderExists(name)) return name;
  }
}

}  // namespace tarnwell
