#include "imaging/output_names.h"

#include <algorithm>
#include <iterator>

#include "platform/files.h"
#include "shell/letter_case.h"

namespace tarnwell {
namespace {

constexpr int kHighestNumber = 99;

// Shown before each proposed name; "…" stands for the photo's folder.
constexpr char kFolderPrefix[] = "\u2026/";

void AddEntry(OutputNames& names, const PhotoPathParts& photo, const std::string& name) {
  names.entries.push_back(kFolderPrefix + name);
  names.paths.push_back(photo.folder + name);
}

// photoA.jpg ... photoZ.jpg. The last one is proposed even when it is taken, so that there always
// is a default; the save then asks for another name.
void AddLetterCandidate(OutputNames& names, const PhotoPathParts& photo, Files& files) {
  char letter = 'A';
  const auto name = [&] { return photo.base + letter + photo.extension; };
  while (letter < 'Z' && files.NameIsTaken(photo.folder + name())) ++letter;
  AddEntry(names, photo, name());
}

// photo-01.jpg ... photo-99.jpg
void AddNumberCandidate(OutputNames& names, const PhotoPathParts& photo, Files& files) {
  for (int number = 1; number <= kHighestNumber; ++number) {
    const std::string two_digits = (number < 10 ? "0" : "") + std::to_string(number);
    const std::string name = photo.base + "-" + two_digits + photo.extension;
    if (!files.NameIsTaken(photo.folder + name)) return AddEntry(names, photo, name);
  }
}

// photo [adjusted].jpg, photo [adjusted 1].jpg ... photo [adjusted 99].jpg
void AddAdjustedCandidate(OutputNames& names, const PhotoPathParts& photo, Files& files) {
  for (int number = 0; number <= kHighestNumber; ++number) {
    const std::string suffix = number == 0 ? "" : " " + std::to_string(number);
    const std::string name = photo.base + " [adjusted" + suffix + "]" + photo.extension;
    if (!files.NameIsTaken(photo.folder + name)) return AddEntry(names, photo, name);
  }
}

}  // namespace

PhotoPathParts SplitPhotoPath(const std::string& path) {
  PhotoPathParts parts;
  const std::size_t backslash = path.rfind('\\');
  const std::size_t name_start = backslash == std::string::npos ? 0 : backslash + 1;
  parts.folder = path.substr(0, name_start);
  if (!parts.folder.ends_with('\\')) parts.folder += '\\';
  parts.file_name = path.substr(name_start);
  // The base stops at the first dot of the name, the extension starts at the last dot of the path.
  parts.base = parts.file_name.substr(0, parts.file_name.find('.'));
  const std::size_t last_dot = path.rfind('.');
  if (last_dot != std::string::npos) parts.extension = path.substr(last_dot);
  return parts;
}

bool IsJpegName(const std::string& path) {
  const std::string extension = FoldCase(SplitPhotoPath(path).extension);
  return extension == ".jpg" || extension == ".jpeg";
}

bool PromisesOtherPicture(const std::string& name) {
  constexpr const char* kOthers[] = {".gif",  ".jfif", ".jpe",  ".jif",  ".png", ".apng", ".tif",
                                     ".tiff", ".webp", ".heic", ".heif", ".hif", ".avif", ".jxl",
                                     ".jp2",  ".dng",  ".psd",  ".tga",  ".ppm"};
  const std::size_t dot = name.find_last_of("./\\");
  if (dot == std::string::npos) return false;
  const std::string extension = FoldCase(name.substr(dot));
  return std::find(std::begin(kOthers), std::end(kOthers), extension) != std::end(kOthers);
}

std::string HowWritten(const std::string& name) {
  return PromisesOtherPicture(name) ? ", written as a bitmap" : "";
}

void BuildOutputNames(OutputNames& names, const std::string& photo_path, Files& files) {
  // A list of one entry offers nothing else, so "Other (prompt)..." was no choice there.
  const bool prompt_chosen = names.shown == kOtherPrompt && names.entries.size() >= 2;
  names = {};
  if (!photo_path.empty()) {
    const PhotoPathParts photo = SplitPhotoPath(photo_path);
    AddLetterCandidate(names, photo, files);
    AddNumberCandidate(names, photo, files);
    AddAdjustedCandidate(names, photo, files);
  }
  names.entries.push_back(kOtherPrompt);
  names.paths.push_back(kOtherPrompt);

  const bool propose = !photo_path.empty() && !prompt_chosen;
  if (propose) names.output_path = names.paths.front();
  // Without a proposal the next save asks, which is what the last entry says.
  names.shown = propose ? names.entries.front() : names.entries.back();
}

void ChooseOutputName(OutputNames& names, std::size_t index) {
  if (index >= names.entries.size()) return;
  names.output_path = names.paths[index];
  names.shown = names.entries[index];
}

}  // namespace tarnwell
