#include "deadpixels/dead_pixel_files.h"

#include <algorithm>
#include <charconv>

#include "imaging/pixel_array.h"
#include "platform/files.h"
#include "shell/letter_case.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

constexpr char kMapName[] = "map.bmp";

// A number from 1 on as it would be written: digits only, no leading zero.
std::optional<int> ParseNumber(std::string_view text) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec != std::errc() || read.ptr != end || text[0] < '1' || text[0] > '9') {
    return std::nullopt;
  }
  return number;
}

}  // namespace

std::string ResolutionName(const Resolution& resolution) {
  return std::to_string(resolution.width) + "x" + std::to_string(resolution.height);
}

std::optional<Resolution> ParseResolution(std::string_view name) {
  const std::size_t between = name.find('x');
  if (between == name.npos) return std::nullopt;
  const auto width = ParseNumber(name.substr(0, between));
  const auto height = ParseNumber(name.substr(between + 1));
  if (!width || !height || *width > kMaxSide || *height > kMaxSide) return std::nullopt;
  return Resolution{*width, *height};
}

std::string DeadPixelsFolder(const Module1& app) { return app.camera_folder + "~ Dead Pixels\\"; }

std::string ResolutionFolder(const Module1& app, const Resolution& resolution) {
  return DeadPixelsFolder(app) + ResolutionName(resolution) + "\\";
}

std::string TestShotName(int number) { return "Input" + std::to_string(number) + ".BMP"; }

std::optional<int> TestShotNumber(std::string_view name) {
  constexpr std::string_view kBefore = "input";
  constexpr std::string_view kBehind = ".bmp";
  const std::string folded = FoldCase(name);
  if (!folded.starts_with(kBefore) || !folded.ends_with(kBehind)) return std::nullopt;
  return ParseNumber(std::string_view(folded).substr(
      kBefore.size(), folded.size() - kBefore.size() - kBehind.size()));
}

Result<std::vector<std::string>> ListTestShots(Files& files, const std::string& folder) {
  const Result<std::vector<FolderEntry>> entries = files.List(folder);
  if (!entries.ok()) return entries.status;
  std::vector<std::string> names;
  for (const FolderEntry& entry : *entries) {
    if (!entry.is_folder && TestShotNumber(entry.name)) names.push_back(entry.name);
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return *TestShotNumber(a) < *TestShotNumber(b);
  });
  return names;
}

Result<std::vector<Resolution>> ListResolutions(const Module1& app, Files& files) {
  std::vector<Resolution> resolutions;
  const std::string folder = DeadPixelsFolder(app);
  const Result<std::vector<FolderEntry>> entries = files.List(folder);
  if (entries.status.failure == Failure::kNotFound) return resolutions;
  if (!entries.ok()) return entries.status;
  for (const FolderEntry& entry : *entries) {
    const auto resolution = ParseResolution(entry.name);
    if (!entry.is_folder || !resolution) continue;
    const auto shots = ListTestShots(files, folder + entry.name + "\\");
    if (!shots.ok()) return shots.status;
    if (!shots->empty()) resolutions.push_back(*resolution);
  }
  std::sort(resolutions.begin(), resolutions.end(), [](const Resolution& a, const Resolution& b) {
    return a.width != b.width ? a.width > b.width : a.height > b.height;
  });
  return resolutions;
}

std::optional<std::string> FindMap(Files& files, const std::string& folder) {
  const Result<std::vector<FolderEntry>> entries = files.List(folder);
  if (!entries.ok()) return std::nullopt;
  for (const FolderEntry& entry : *entries) {
    if (!entry.is_folder && FoldCase(entry.name) == kMapName) return folder + entry.name;
  }
  return std::nullopt;
}

std::string MapPath(Files& files, const std::string& folder) {
  return FindMap(files, folder).value_or(folder + kMapName);
}

}  // namespace tarnwell
