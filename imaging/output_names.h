#pragma once

#include <string>
#include <vector>

namespace tarnwell {

class Files;

inline constexpr char kOtherPrompt[] = "Other (prompt)...";

// The parts of a photo's path that output names are made of.
struct PhotoPathParts {
  std::string folder;     // up to and including the last backslash; appended if missing
  std::string file_name;  // after the last backslash
  std::string base;       // the file name up to its FIRST dot
  std::string extension;  // the path from its LAST dot, dot included; empty when there is none
};
PhotoPathParts SplitPhotoPath(const std::string& path);

// Whether a new photo of this name is written as a JPEG file; all others are bitmaps.
bool IsJpegName(const std::string& path);

// Whether the name promises a picture that is neither JPEG nor bitmap, as "photo.png" does. Files
// of such names are written as bitmaps all the same.
bool PromisesOtherPicture(const std::string& name);

// What the line about a saved photo adds where the name promises something else; often nothing.
std::string HowWritten(const std::string& name);

// The output-name list of the "Save Photo As..." module.
struct OutputNames {
  std::vector<std::string> entries;  // as shown: the file names behind a prefix, then "Other..."
  std::vector<std::string> paths;    // full paths, parallel to entries; the last is kOtherPrompt
  std::string shown;                 // the name field (`ShowNewName`)
  std::string output_path;           // what the next save writes; may be empty or kOtherPrompt
};

// Fills the list for the photo at `photo_path` (empty: none) from the names that are still free
// beside it, and proposes the letter candidate. Proposes nothing when there is no photo, or when
// "Other (prompt)..." was shown in a list of at least two entries before.
void BuildOutputNames(OutputNames& names, const std::string& photo_path, Files& files);

// Takes entry `index` as the output path.
void ChooseOutputName(OutputNames& names, std::size_t index);

}  // namespace tarnwell
