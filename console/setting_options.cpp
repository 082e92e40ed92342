#include "console/setting_options.h"

#include <CLI/CLI.hpp>

#include "console/options.h"

namespace tarnwell {
namespace {

constexpr int kMostThreads = 256;

// An option that may be given again and again, one word each time, read by `parse`.
template <typename Setting>
void AddRepeated(CLI::App& app, const std::string& name, const std::string& placeholder,
                 Result<Setting> (*parse)(std::string_view), std::vector<Setting>& settings,
                 const std::string& description) {
  app.add_option_function<std::vector<std::string>>(
         name,
         [name, parse, &settings](const std::vector<std::string>& words) {
           for (const std::string& word : words) {
             const Result<Setting> setting = parse(word);
             if (!setting.ok()) throw CLI::ValidationError(name, setting.status.message);
             settings.push_back(*setting);
           }
         },
         description)
      ->allow_extra_args(false)
      ->type_name(placeholder)
      ->group("Settings");
}

template <typename Setting>
CLI::Option* AddSingle(CLI::App& app, const std::string& name, const std::string& placeholder,
                       Result<Setting> (*parse)(std::string_view), std::optional<Setting>& setting,
                       const std::string& description) {
  return app
      .add_option_function<std::string>(
          name,
          [name, parse, &setting](const std::string& word) {
            const Result<Setting> parsed = parse(word);
            if (!parsed.ok()) throw CLI::ValidationError(name, parsed.status.message);
            setting = *parsed;
          },
          description)
      ->type_name(placeholder)
      ->group("Settings");
}

}  // namespace

std::string IsNamed(const std::string& word) { return word.empty() ? "a name is missing" : ""; }

CLI::Option* AddProgramFolder(CLI::App& app, std::string& folder) {
  return app
      .add_option("--program-folder", folder,
                  "Folder that holds the camera tree (your data folder unless said)")
      ->type_name("DIR")
      ->check(IsNamed);
}

namespace {

// Whose settings they are, and where they start from.
void AddStartingPoint(CLI::App& app, Settings& settings) {
  app.add_option("--camera", settings.camera, "Whose learnt corrections are used; made if missing")
      ->type_name("NAME")
      ->check(IsNamed)
      ->group("Settings");
  app.add_option("--mode", settings.mode, "The camera's mode; made if missing")
      ->type_name("NAME")
      ->check(IsNamed)
      ->group("Settings");
  app.add_option("--preset", settings.preset, "A preset to start from; other settings change it")
      ->type_name("FILE.twp")
      ->check(IsNamed)
      ->group("Settings");
}

// What stands in the panel of modules.
void AddPanel(CLI::App& app, Settings& settings) {
  AddRepeated(app, "--module", "N=on|off", ParseModuleSetting, settings.modules,
              "Switch a module on or off; may be repeated");
  AddRepeated(app, "--slider", "N=VALUE", ParseSliderSetting, settings.sliders,
              "Set a value; may be repeated");
  AddRepeated(app, "--check", "N=0|1", ParseCheckSetting, settings.checks,
              "Set a check option; may be repeated");
  app.add_option("--rotation", settings.rotation, "Which way module 9 turns the photo")
      ->type_name("0..4")
      ->check(CLI::Range(0, 4).description(""))
      ->group("Settings");
  AddSingle(app, "--hue", "X,Y", ParseHueMarker, settings.hue,
            "Place of the hue marker, 0 to 105 each; 53,53 is the centre and changes nothing");
  CLI::Option* const white =
      AddSingle(app, "--white", "R,G,B", ParseColour, settings.white,
                "The color that is to become white, as module 2 corrects towards it");
  app.add_option("--white-file", settings.white_file, "A white balance file to take it from")
      ->type_name("FILE.wbs")
      ->check(IsNamed)
      ->excludes(white)
      ->group("Settings");
  AddSingle(app, "--quality", "N|original", ParseJpegQuality, settings.quality,
            "Quality of JPEG files, as slider 6; \"original\" takes that of the photo's own file");
  app.add_flag("--strip-place", settings.leave_place_out,
               "Keep the place where the photo was taken out of the saved file")
      ->group("Settings");
}

// How a run works.
void AddRun(CLI::App& app, Settings& settings) {
  app.add_option_function<std::string>(
         "--analyze",
         [&settings](const std::string& word) { settings.analyze_full = word == "full"; },
         "What module 1 measures (thumbnail unless said)")
      ->check(CLI::IsMember({"thumbnail", "full"}).description(""))
      ->type_name("thumbnail|full")
      ->group("Settings");
  app.add_flag("--extended-noise", settings.extended_noise,
               "Take the noise radius as it is, not an eighth of it: slow and thorough")
      ->group("Settings");
  app.add_option("--threads", settings.threads,
                 "Threads that share the work (as many as processors unless said); the result is "
                 "the same")
      ->type_name("N")
      ->check(CLI::Range(1, kMostThreads).description(""))
      ->group("Settings");
  app.add_flag("--quiet", settings.quiet,
               "Show failures and what a new file cannot keep, but nothing else")
      ->group("Settings");
}

}  // namespace

// The help lists them in this order.
void AddSettings(CLI::App& app, Settings& settings) {
  AddStartingPoint(app, settings);
  AddPanel(app, settings);
  AddRun(app, settings);
  AddProgramFolder(app, settings.program_folder)->group("Settings");
}

void AddLearning(CLI::App& app, Settings& settings) {
  CLI::Option* const learn = app.add_flag_callback(
                                    "--learn", [&settings] { settings.learn = true; },
                                    "Let later corrections learn from this one, as check option 2")
                                 ->group("Settings");
  app.add_flag_callback(
         "--no-learn", [&settings] { settings.learn = false; }, "Or do not")
      ->excludes(learn)
      ->group("Settings");
}

}  // namespace tarnwell
