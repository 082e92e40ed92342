#include "automation/free_name.h"

#include "imaging/output_names.h"
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
    if (!files.NameIsTaken(name)) return name;
  }
}

Status NameLeadsSomewhere(Files& files, const std::string& path, const std::string& wish) {
  const std::string folder = SplitPhotoPath(path).folder;
  if (folder == SplitPhotoPath(wish).folder || files.FolderExists(folder)) return Status::Ok();
  return Status::Error(Failure::kNotFound,
                       files.Display(wish) + ": is there already, and " + files.Display(path) +
                           " lies in no folder, because of the dot in a folder's name; move what "
                           "is there to another place");
}

}  // namespace tarnwell
