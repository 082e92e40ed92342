#include "modules/settings_file.h"

#include "imaging/bmp_file.h"
#include "imaging/gif_structure.h"
#include "imaging/jpeg_structure.h"
#include "imaging/photo_list.h"
#include "platform/files.h"
#include "shell/line_reader.h"

namespace tarnwell {
namespace {

// Whether the file that is there is a photo, also behind a link, or longer than any settings.
bool HoldsSomethingElse(Files& files, const std::string& path) {
  if (IsPhotoName(path)) return files.NameIsTaken(path);
  const Result<std::string> bytes = files.Read(path, kMostTextBytes);
  if (!bytes.ok()) return bytes.status.failure == Failure::kTooLarge;
  return IsBmp(*bytes) || IsGif(*bytes) || IsJpeg(*bytes);
}

}  // namespace

Status ReplaceSettingsFile(Files& files, const std::string& path, std::string_view text) {
  if (HoldsSomethingElse(files, path)) {
    return Status::Error(Failure::kExists,
                         files.Display(path) + ": holds no settings, and is not replaced");
  }
  return files.Replace(path, text);
}

}  // namespace tarnwell
