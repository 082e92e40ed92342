#pragma once

#include <string>
#include <vector>

namespace tarnwell {

class Files;

// The names of the presets (*.twp in any letter case) in `folder`, sorted by name ignoring case.
// Empty when the folder cannot be listed.
std::vector<std::string> ListPresetFiles(Files& files, const std::string& folder);

}  // namespace tarnwell
