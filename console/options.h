#pragma once

#include <optional>
#include <string>
#include <vector>

#include "console/setting_words.h"
#include "modules/frm_modules.h"

namespace tarnwell {

// What the words of every command can say about the correction. Paths are as the user wrote them.
struct Settings {
  std::string camera;  // empty: "Default"
  std::string mode;    // empty: "Default"
  std::string preset;  // empty: none
  std::vector<ModuleSetting> modules;
  std::vector<SliderSetting> sliders;
  std::vector<CheckSetting> checks;
  std::optional<bool> learn;    // as check option 2
  std::optional<int> rotation;  // 0 to 4
  std::optional<HueMarker> hue;
  std::optional<Rgb> white;
  std::string white_file;  // empty: none
  std::optional<JpegQuality> quality;
  bool leave_place_out = false;
  bool analyze_full = false;
  bool extended_noise = false;
  int threads = 0;             // 0: as many as there are processors
  bool quiet = false;          // no progress, no hints, not where photos are saved
  std::string program_folder;  // empty: the user's data folder
};

struct CorrectOptions {
  Settings settings;
  std::vector<std::string> photos;  // at least one
  std::string output;               // empty: the proposed name
  std::string output_folder;        // empty: beside the photo
  bool preview = false;             // corrects and saves the thumbnail
  bool record = false;              // prints the learning record
};

struct DirectoryOptions {
  Settings settings;
  std::string folder;  // or a photo in it
};

struct WatchOptions {
  Settings settings;
  std::string input;      // the watched folder
  std::string output;     // where corrected photos are saved
  std::string processed;  // where their sources are moved
  bool once = false;      // ends when the photos that are there are done
};

struct PresetsOptions {
  Settings settings;
  std::string file;  // the preset to write
};

struct CamerasOptions {
  std::string program_folder;  // empty: the user's data folder
};

struct LearningOptions {
  std::string camera = "Default";
  std::string mode = "Default";
  std::string program_folder;  // empty: the user's data folder
  bool reset = false;
};

enum class DeadPixelsAction { kAdd, kAssess };

struct DeadPixelsOptions {
  DeadPixelsAction action = DeadPixelsAction::kAdd;
  std::string camera = "Default";
  std::vector<std::string> shots;  // to add: at least one; to assess: none
  std::string program_folder;      // empty: the user's data folder
};

// What became of a command's words: its options, or texts to print and an exit code. A request for
// help ends with code 0 and text for standard output, a mistake with code 2 and text for standard
// error.
template <typename Options>
struct ParsedWords {
  std::optional<Options> options;
  int exit_code = 0;
  std::string out;
  std::string err;
};

// Each reads the words behind its command.
ParsedWords<CorrectOptions> ParseCorrectWords(const std::vector<std::string>& words);
ParsedWords<DirectoryOptions> ParseDirectoryWords(const std::vector<std::string>& words);
ParsedWords<WatchOptions> ParseWatchWords(const std::vector<std::string>& words);
ParsedWords<PresetsOptions> ParsePresetsWords(const std::vector<std::string>& words);
ParsedWords<CamerasOptions> ParseCamerasWords(const std::vector<std::string>& words);
ParsedWords<LearningOptions> ParseLearningWords(const std::vector<std::string>& words);
ParsedWords<DeadPixelsOptions> ParseDeadPixelsWords(const std::vector<std::string>& words);

}  // namespace tarnwell
