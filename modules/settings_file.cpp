#include "modules/settings_file.h"

#include "imaging/photo_list.h"
#include "platform/files.h"

namespace tarnwell {

Status ReplaceSettingsFile(Files& files, const std::string& path, std::string_view text) {
  if (IsPhotoName(path) && files.NameIsTaken(path)) {
    return Status::Error(Failure::kExists,
                         files.Display(path) + ": is a photo, and photos are never replaced");
  }
  return files.Replace(path, text);
}

}  // namespace tarnwell
