#include "imaging/photo_list.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/files.h"
#include "shell/letter_case.h"

namespace tarnwell {
namespace {

constexpr std::array<std::string_view, 4> kPhotoExtensions = {".bmp", ".jpeg", ".jpg", ".gif"};

}  // namespace

bool IsPhotoName(std::string_view file_name) {
  const std::string lower = FoldCase(file_name);
  return std::any_of(kPhotoExtensions.begin(), kPhotoExtensions.end(),
                     [&](std::string_view extension) { return lower.ends_with(extension); });
}

Result<std::vector<std::string>> ListPhotos(Files& files, const std::string& folder) {
  Result<std::vector<FolderEntry>> listed = files.List(folder);
  if (!listed.ok()) return listed.status;

  std::vector<std::string> names;
  for (FolderEntry& entry : *listed) {
    if (!entry.is_folder && IsPhotoName(entry.name)) names.push_back(std::move(entry.name));
  }
  std::sort(names.begin(), names.end(), NameComesBefore);
  return names;
}

}  // namespace tarnwell
