#pragma once

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>

#include "tests/support/temp_folder.h"

namespace tarnwell {

using Contents = std::map<std::string, std::string>;  // by path below the folder

inline Contents ContentsOf(const TempFolder& folder) {
  Contents contents;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.SystemPath())) {
    if (!entry.is_regular_file()) continue;
    std::string name = entry.path().lexically_relative(folder.SystemPath()).string();
    std::replace(name.begin(), name.end(), '/', '\\');
    contents[name] = folder.Read(name);
  }
  return contents;
}

}  // namespace tarnwell
