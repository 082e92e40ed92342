#include "console/dead_pixels_command.h"

#include <optional>
#include <string>

#include "console/console_dialogs.h"
#include "console/console_host.h"
#include "console/console_window.h"
#include "console/options.h"
#include "console/panel_settings.h"
#include "console/progress_bar.h"
#include "console/shown_text.h"
#include "deadpixels/add_test_shot.h"
#include "deadpixels/assess_test_shots.h"
#include "modules/profile_names.h"
#include "shell/profile_selection.h"

namespace tarnwell {
namespace {

class DeadPixelsCommand {
 public:
  DeadPixelsCommand(const DeadPixelsOptions& options, ConsoleHost& host)
      : options_(options), host_(host), dialogs_(host.err, /*save_thumbnail=*/false) {}

  int Run() {
    Status ready = UseProgramFolder(options_.program_folder, files(), window_.app);
    if (ready.ok()) ready = SelectCamera();
    if (!ready.ok()) {
      TellLine(host_.err, ready.message);
      return CodeOfRefusal(ready);
    }
    if (options_.action == DeadPixelsAction::kAdd) {
      Add();
    } else {
      Assess();
    }
    return host_.interrupted() ? kInterrupted : code_;
  }

 private:
  // A camera is made for its first test shots, but there is nothing to assess for a new one.
  Status SelectCamera() {
    if (options_.action == DeadPixelsAction::kAssess &&
        !IsCamera(window_.app, files(), CleanProfileName(options_.camera))) {
      return Status::Error(Failure::kNotFound, options_.camera + ": there is no such camera");
    }
    Settings settings;
    settings.camera = options_.camera;
    return ApplySettings(settings, window_.platform, window_.app, window_.modules);
  }

  void Add() {
    for (const std::string& shot : options_.shots) {
      if (host_.interrupted()) return;
      const auto added = AddTestShot(window_.app, window_.platform, files().Absolute(shot));
      if (!added.ok()) {
        Fail(added.status.message);
        continue;
      }
      host_.out << OneLine(shot) << ": " << (added->kind == ShotKind::kDark ? "dark" : "light")
                << " shot of " << ResolutionName(added->resolution) << ", kept as " << added->name
                << std::endl;
    }
  }

  void Assess() {
    const auto resolutions = ListResolutions(window_.app, files());
    if (!resolutions.ok()) return Fail(resolutions.status.message);
    if (resolutions->empty()) {
      return Fail("The camera " + window_.modules.camera +
                  " has no test shots; \"deadpixels add\" adds some.");
    }
    for (const Resolution& resolution : *resolutions) {
      if (!AssessResolution(resolution)) return;
    }
  }

  // False when the user has interrupted.
  bool AssessResolution(const Resolution& resolution) {
    std::optional<ProgressBar> bar;
    if (host_.err_is_terminal) {
      bar.emplace(TerminalLine(host_.err, host_.columns));
      bar->ShowText(ResolutionName(resolution));
      bar->ShowWindow();
    }
    const Assessment assessment =
        AssessTestShots(window_.app, window_.platform, resolution, [&](double share) {
          if (bar) bar->DrawBar(static_cast<float>(100 * share));
          return !host_.interrupted();
        });
    bar.reset();
    if (host_.interrupted()) return false;
    for (const std::string& line : assessment.left_out) Fail(line);
    if (!assessment.status.ok()) {
      Fail(assessment.status.message);
    } else {
      host_.out << AssessmentText(assessment) << std::endl;
    }
    return true;
  }

  void Fail(const std::string& line) {
    TellLine(host_.err, line);
    code_ = kSomePhotoFailed;
  }

  Files& files() { return *system_.files; }

  const DeadPixelsOptions& options_;
  ConsoleHost& host_;
  ConsoleSystem system_;
  ConsoleDialogs dialogs_;
  StartingPoint start_;
  ConsoleWindow window_{start_, system_, dialogs_, host_.interrupted, 1};
  int code_ = kDone;
};

}  // namespace

int RunDeadPixelsCommand(const DeadPixelsOptions& options, ConsoleHost& host) {
  return DeadPixelsCommand(options, host).Run();
}

}  // namespace tarnwell
