#include "console/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "console/help_text.h"
#include "console/setting_options.h"
#include "imaging/output_names.h"
#include "modules/presets.h"
#include "shell/letter_case.h"

namespace tarnwell {
namespace {

constexpr char kCorrectUsage[] =
    "Usage: tarnwell-pocket correct PHOTO... [settings]\n"
    "                               [--output FILE | --output-folder DIR] [--preview] [--record]\n";

constexpr char kDirectoryUsage[] = "Usage: tarnwell-pocket directory PHOTO-OR-FOLDER [settings]\n";
constexpr char kWatchUsage[] =
    "Usage: tarnwell-pocket watch --input DIR --output DIR --processed DIR [--once] [settings]\n";
constexpr char kPresetsUsage[] = "Usage: tarnwell-pocket presets save FILE.twp [settings]\n";
constexpr char kCamerasUsage[] = "Usage: tarnwell-pocket cameras [--program-folder DIR]\n";
constexpr char kLearningUsage[] =
    "Usage: tarnwell-pocket learning [--camera NAME] [--mode NAME] [--reset]\n"
    "                                [--program-folder DIR]\n";

constexpr char kDeadPixelsUsage[] =
    "Usage: tarnwell-pocket deadpixels add [--camera NAME] [--program-folder DIR] SHOT...\n"
    "       tarnwell-pocket deadpixels assess [--camera NAME] [--program-folder DIR]\n";

// A check of a word that names a new photo: what is wrong with it; empty when nothing is.
std::string IsOutputName(const std::string& word) {
  if (!PromisesOtherPicture(word)) return IsNamed(word);
  return "\"" + word + "\": only JPEG files and bitmaps are written; end the name in .jpg or .bmp";
}

// A word that begins like an option and is none. The parser would first miss others.
[[noreturn]] void RefuseWord(const std::string& word) {
  const bool may_be_photo = !word.starts_with("--");
  throw CLI::ValidationError(
      "The following argument was not expected",
      may_be_photo ? word + "; for a file of this name write ./" + word : word);
}

// Refuses words that are no options, an option without its value, which would take the next option
// for it, and a value for an option that has none. An empty word is a value, which the option's own
// check looks at.
void CheckOptions(const CLI::App& app, const std::vector<std::string>& words) {
  const auto end = std::find(words.begin(), words.end(), "--");
  for (const char* help : {"-h", "--help"}) {
    if (std::find(words.begin(), end, help) != end) throw CLI::CallForHelp();
  }
  for (std::size_t i = 0; i < words.size() && words[i] != "--"; ++i) {
    if (words[i].size() < 2 || words[i][0] != '-') continue;
    const std::size_t equals = words[i].find('=');
    const std::string name = words[i].substr(0, equals);
    const CLI::Option* const option = app.get_option_no_throw(name);
    if (option == nullptr) RefuseWord(words[i]);
    const bool takes_value = option->get_items_expected_min() > 0;
    const bool in_one_word = equals != words[i].npos;
    if (in_one_word && !takes_value) throw CLI::ValidationError(name, "takes no value");
    if (!takes_value) continue;
    if (!in_one_word) ++i;
    const bool missing = in_one_word ? equals + 1 == words[i].size()
                                     : i == words.size() || words[i].starts_with("--");
    if (missing) throw CLI::ValidationError(name, "its value is missing");
  }
}

// A check of a word that names a preset to write, which may replace a file of that name.
std::string IsPresetName(const std::string& word) {
  if (FoldCase(word).ends_with(kPresetExtension)) return "";
  return "\"" + word + "\": a preset's name ends in " + kPresetExtension;
}

// Runs the parser over the words. What it refuses ends with its text, then `usage`.
template <typename Options>
ParsedWords<Options> Parse(CLI::App& app, const std::vector<std::string>& words,
                           const Options& options, const std::string& usage) {
  ParsedWords<Options> parsed;
  try {
    CheckOptions(app, words);
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    parsed.options = options;
  } catch (const CLI::CallForHelp&) {
    parsed.out = app.help();
  } catch (const CLI::ParseError& error) {
    parsed.exit_code = 2;
    parsed.err = std::string(error.what()) + "\n" + usage + "\"" + app.get_name() +
                 " --help\" explains every word.\n";
  }
  return parsed;
}

}  // namespace

ParsedWords<CorrectOptions> ParseCorrectWords(const std::vector<std::string>& words) {
  CorrectOptions options;
  CLI::App app("Corrects photos and saves each as a new file; no file is ever replaced.",
               "tarnwell-pocket correct");
  app.allow_windows_style_options(false);
  app.footer(SettingsHelp);

  app.add_option("PHOTO", options.photos, "Photos to correct: BMP, GIF or JPEG files")
      ->required()
      ->type_name("")
      ->check(IsNamed);
  CLI::Option* const output =
      app.add_option("--output", options.output,
                     "File to write, for one photo; .jpg and .jpeg make a JPEG, anything else a "
                     "bitmap (a free name beside the photo unless said)")
          ->type_name("FILE")
          ->check(IsOutputName);
  app.add_option("--output-folder", options.output_folder,
                 "Folder to write into, under a name that is free there")
      ->type_name("DIR")
      ->check(IsNamed)
      ->excludes(output);
  app.add_flag("--preview", options.preview,
               "Correct and save the thumbnail, at most 320 x 320 pixels");
  app.add_flag("--record", options.record,
               "Print what was measured and set: 21 fields with tabs between them");
  AddSettings(app, options.settings);
  AddLearning(app, options.settings);

  ParsedWords<CorrectOptions> parsed = Parse(app, words, options, kCorrectUsage);
  if (parsed.options && options.photos.size() > 1 && !options.output.empty()) {
    parsed.options.reset();
    parsed.exit_code = 2;
    parsed.err = std::string(
                     "--output names one file, but there are several photos; "
                     "--output-folder takes any number\n") +
                 kCorrectUsage;
  }
  return parsed;
}

ParsedWords<DirectoryOptions> ParseDirectoryWords(const std::vector<std::string>& words) {
  DirectoryOptions options;
  CLI::App app(
      "Corrects every photo of a folder, several at once, into the folder TWout beside them. What "
      "was "
      "learnt is used, and nothing is added to it.",
      "tarnwell-pocket directory");
  app.allow_windows_style_options(false);
  app.footer(SettingsHelp);
  app.add_option("PHOTO-OR-FOLDER", options.folder, "The folder, or any photo in it")
      ->required()
      ->type_name("")
      ->check(IsNamed);
  AddSettings(app, options.settings);
  return Parse(app, words, options, kDirectoryUsage);
}

ParsedWords<WatchOptions> ParseWatchWords(const std::vector<std::string>& words) {
  WatchOptions options;
  CLI::App app(
      "Corrects photos as they arrive in a folder, until you stop it with Ctrl+C. What was learnt "
      "is "
      "used, and nothing is added to it.",
      "tarnwell-pocket watch");
  app.allow_windows_style_options(false);
  app.footer(SettingsHelp);
  const auto add_folder = [&app](const char* name, std::string& folder, const char* description) {
    app.add_option(name, folder, description)->required()->type_name("DIR")->check(IsNamed);
  };
  add_folder("--input", options.input, "The folder to watch");
  add_folder("--output", options.output, "Where corrected photos are saved");
  add_folder("--processed", options.processed, "Where a photo is moved once its copy is saved");
  app.add_flag("--once", options.once, "Take the photos that are there, then end");
  AddSettings(app, options.settings);
  return Parse(app, words, options, kWatchUsage);
}

ParsedWords<PresetsOptions> ParsePresetsWords(const std::vector<std::string>& words) {
  PresetsOptions options;
  CLI::App app("Keeps settings in a preset, which --preset puts in force again.",
               "tarnwell-pocket presets");
  app.allow_windows_style_options(false);
  app.footer(SettingsHelp);
  std::string action;
  app.add_option("ACTION", action, "\"save\": writes the preset, replacing a file of this name")
      ->required()
      ->check(CLI::IsMember({"save"}).description(""))
      ->type_name("");
  app.add_option("FILE", options.file, "The preset to write; its name ends in .twp")
      ->required()
      ->type_name("")
      ->check(IsNamed)
      ->check(IsPresetName);
  AddSettings(app, options.settings);
  AddLearning(app, options.settings);
  return Parse(app, words, options, kPresetsUsage);
}

ParsedWords<CamerasOptions> ParseCamerasWords(const std::vector<std::string>& words) {
  CamerasOptions options;
  CLI::App app("Lists cameras, their modes, and how many corrections were learnt for each.",
               "tarnwell-pocket cameras");
  app.allow_windows_style_options(false);
  AddProgramFolder(app, options.program_folder);
  return Parse(app, words, options, kCamerasUsage);
}

ParsedWords<LearningOptions> ParseLearningWords(const std::vector<std::string>& words) {
  LearningOptions options;
  CLI::App app("Tells how many corrections were learnt for a camera and mode, or forgets them.",
               "tarnwell-pocket learning");
  app.allow_windows_style_options(false);
  app.add_option("--camera", options.camera, "The camera (Default unless said)")
      ->type_name("NAME")
      ->check(IsNamed);
  app.add_option("--mode", options.mode, "Its mode (Default unless said)")
      ->type_name("NAME")
      ->check(IsNamed);
  app.add_flag("--reset", options.reset, "Delete permanently what was learnt, without a question");
  AddProgramFolder(app, options.program_folder);
  return Parse(app, words, options, kLearningUsage);
}

ParsedWords<DeadPixelsOptions> ParseDeadPixelsWords(const std::vector<std::string>& words) {
  DeadPixelsOptions options;
  CLI::App app("Collects test shots of a camera, and finds its stuck pixels in them.",
               "tarnwell-pocket deadpixels");
  app.allow_windows_style_options(false);
  app.footer(DeadPixelsHelp);
  app.add_option_function<std::string>(
         "ACTION",
         [&options](const std::string& word) {
           options.action = word == "add" ? DeadPixelsAction::kAdd : DeadPixelsAction::kAssess;
         },
         "\"add\": keeps a copy of each shot; \"assess\": makes the maps from what was added")
      ->required()
      ->check(CLI::IsMember({"add", "assess"}).description(""))
      ->type_name("");
  app.add_option("SHOT", options.shots,
                 "Photos to add: BMP, GIF or JPEG files as the camera made "
                 "them")
      ->type_name("")
      ->check(IsNamed);
  app.add_option("--camera", options.camera, "The camera (Default unless said); made when adding")
      ->type_name("NAME")
      ->check(IsNamed);
  AddProgramFolder(app, options.program_folder);
  ParsedWords<DeadPixelsOptions> parsed = Parse(app, words, options, kDeadPixelsUsage);
  const bool adding = options.action == DeadPixelsAction::kAdd;
  if (parsed.options && adding == options.shots.empty()) {
    parsed.options.reset();
    parsed.exit_code = 2;
    parsed.err = std::string(adding ? "There is no shot to add.\n"
                                    : "\"assess\" takes no shots; add them first.\n") +
                 kDeadPixelsUsage;
  }
  return parsed;
}

}  // namespace tarnwell
