#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/status.h"

namespace tarnwell {

class Files;
struct Module1;

// A photo's size as it names a folder of test shots: "4000x3000".
struct Resolution {
  int width = 0;  // 1 to kMaxSide, like the height
  int height = 0;
  bool operator==(const Resolution&) const = default;
};
std::string ResolutionName(const Resolution& resolution);
// Nothing for any other name.
std::optional<Resolution> ParseResolution(std::string_view name);

// The folder of the current camera's test shots and maps, and the one in it for a resolution; each
// with its backslash, made or not.
std::string DeadPixelsFolder(const Module1& app);
std::string ResolutionFolder(const Module1& app, const Resolution& resolution);

// Test shot 1 is "Input1.BMP". The number is read from names in any letter case; nothing for other
// files.
std::string TestShotName(int number);
std::optional<int> TestShotNumber(std::string_view name);

// The names of the test shots in this folder (with its backslash), by number.
Result<std::vector<std::string>> ListTestShots(Files& files, const std::string& folder);

// The current camera's resolutions that have test shots, the largest first. None where the camera
// has no folder for them.
Result<std::vector<Resolution>> ListResolutions(const Module1& app, Files& files);

// The map in the folder of its resolution, as its name is spelled there; nothing if there is none.
std::optional<std::string> FindMap(Files& files, const std::string& folder);
// The same, or where a new map goes.
std::string MapPath(Files& files, const std::string& folder);

}  // namespace tarnwell
