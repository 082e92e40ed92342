#include "shell/preset_files.h"

#include <algorithm>
#include <utility>

#include "modules/presets.h"
#include "platform/files.h"
#include "shell/letter_case.h"

namespace tarnwell {

std::vector<std::string> ListPresetFiles(Files& files, const std::string& folder) {
  auto listed = files.List(folder);
  if (!listed.ok()) return {};
  std::vector<std::string> names;
  for (FolderEntry& entry : *listed) {
    if (!entry.is_folder && FoldCase(entry.name).ends_with(kPresetExtension)) {
      names.push_back(std::move(entry.name));
    }
  }
  std::sort(names.begin(), names.end(), NameComesBefore);
  return names;
}

}  // namespace tarnwell
