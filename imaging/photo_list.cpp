#include "imaging/photo_list.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/files.h"

namespace tarnwell {
namespace {

constexpr std::array<std::string_view, 4> kPhotoExtensions = {".bmp", ".jpeg", ".jpg", ".gif"};

std::string LowerLatin(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

}  // namespace

bool IsPhotoName(std::string_view file_name) {
  const std::string lower = LowerLatin(file_name);
  return std::any_of(kPhotoExtensions.begin(), kPhotoExtensions.end(),
                     [&](std::string_view extension) { return lower.ends_with(extension); });
}

Result<std::vector<std::string>> ListPhotos(Files& files, const std::string& folder) {
  Result<std::vector<FolderEntry>> listed = files.List(folder);
  if (!listed.ok()) return listed.status;

  // Sorted by the folded name; the name itself decides between two that differ in case only, so
  // that the order does not depend on the system's.
  std::vector<std::pair<std::string, std::string>> photos;
  for (const FolderEntry& entry : *listed) {
    if (!entry.is_folder && IsPhotoName(entry.name)) {
      photos.emplace_back(LowerLatin(entry.name), entry.name);
    }
  }
  std::sort(photos.begin(), photos.end());

  std::vector<std::string> names;
  names.reserve(photos.size());
  for (auto& photo : photos) names.push_back(std::move(photo.second));
  return names;
}

}  // namespace tarnwell
