#include "console/camera_commands.h"

#include <string>

#include "console/console_host.h"
#include "console/panel_settings.h"
#include "console/shown_text.h"
#include "engine/learning_store.h"
#include "modules/frm_modules.h"
#include "modules/profile_names.h"
#include "modules/profiles.h"
#include "platform/files.h"
#include "platform/system.h"
#include "shell/module1.h"
#include "shell/profile_selection.h"

namespace tarnwell {
namespace {

std::string LearntText(std::size_t records) {
  if (records == 0) return "nothing learnt yet";
  return std::to_string(records) + (records == 1 ? " correction" : " corrections") + " learnt";
}

// Prints the failure, if it is one, and remembers it in the exit code.
void Note(const Status& status, ConsoleHost& host, int& code) {
  if (status.ok()) return;
  TellLine(host.err, status.message);
  code = kSomePhotoFailed;
}

// Prints the modes of the camera that `panel` has selected.
void ListModes(Module1& app, Files& files, frmModules& panel, ConsoleHost& host, int& code) {
  const auto modes = ListProfiles(app, files, panel, ProfileList::kModes);
  Note(modes.status, host, code);
  if (!modes.ok()) return;
  for (const std::string& entry : *modes) {
    const std::string mode = ProfileNameOf(entry);
    SetProfile(app, panel.camera, mode);
    const LoadedLearning learnt = LoadLearningData(files, app.mode_folder);
    host.out << "  " << OneLine(mode) << ": " << LearntText(learnt.data.records.size()) << "\n";
    Note(learnt.status, host, code);
  }
}

// The camera and mode that the words name, which were made with clean names.
Status FindProfile(const LearningOptions& options, Files& files, Module1& app) {
  const std::string camera = CleanProfileName(options.camera);
  const std::string mode = CleanProfileName(options.mode);
  if (!IsCamera(app, files, camera)) {
    return Status::Error(Failure::kNotFound, options.camera + ": there is no such camera");
  }
  if (!IsMode(app, files, camera, mode)) {
    return Status::Error(Failure::kNotFound,
                         options.mode + ": the camera " + options.camera + " has no such mode");
  }
  SetProfile(app, camera, mode);
  return Status::Ok();
}

}  // namespace

int RunCamerasCommand(const CamerasOptions& options, ConsoleHost& host) {
  const auto files = MakeSystemFiles();
  Module1 app;
  if (const Status found = UseProgramFolder(options.program_folder, *files, app); !found.ok()) {
    TellLine(host.err, found.message);
    return kWrongUsage;
  }
  if (!files->FolderExists(app.cameras_root)) {
    TellLine(host.err, files->Display(app.cameras_root) + ": no camera has been made yet");
    return kDone;
  }
  int code = kDone;
  frmModules panel;
  const auto cameras = ListProfiles(app, *files, panel, ProfileList::kCameras);
  Note(cameras.status, host, code);
  if (!cameras.ok()) return code;
  for (const std::string& entry : *cameras) {
    panel.camera = ProfileNameOf(entry);
    SetProfile(app, panel.camera, "");
    host.out << OneLine(panel.camera) << "\n";
    ListModes(app, *files, panel, host, code);
  }
  return code;
}

int RunLearningCommand(const LearningOptions& options, ConsoleHost& host) {
  const auto files = MakeSystemFiles();
  Module1 app;
  Status found = UseProgramFolder(options.program_folder, *files, app);
  if (found.ok()) found = FindProfile(options, *files, app);
  if (!found.ok()) {
    TellLine(host.err, found.message);
    return kWrongUsage;
  }
  int code = kDone;
  const std::string name = "Camera " + options.camera + ", mode " + options.mode + ": ";
  if (options.reset) {
    Note(DeleteLearningData(app, *files), host, code);
    if (code == kDone) host.out << name << "what was learnt is deleted\n";
    return code;
  }
  const LoadedLearning learnt = LoadLearningData(*files, app.mode_folder);
  host.out << name << LearntText(learnt.data.records.size()) << "\n";
  Note(learnt.status, host, code);
  return code;
}

}  // namespace tarnwell
