#include "console/correct_command.h"

#include <new>
#include <optional>
#include <string>
#include <utility>

#include "console/console_dialogs.h"
#include "console/console_events.h"
#include "console/console_host.h"
#include "console/console_system.h"
#include "console/panel_settings.h"
#include "console/progress_bar.h"
#include "engine/adjust_photo.h"
#include "engine/learning_store.h"
#include "imaging/file_open.h"
#include "imaging/file_save.h"
#include "imaging/output_names.h"
#include "modules/frm_modules.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

constexpr int kLeaveSettingsAlone = 2;  // photo open mode

// What every photo of the command starts from.
struct StartingPoint {
  Module1 app;
  frmModules modules = FirstStartPanel();
  LearningData learning;
};

class CorrectCommand {
 public:
  CorrectCommand(const CorrectOptions& options, ConsoleHost& host)
      : options_(options), host_(host), dialogs_(host.err, options.preview) {}

  int Run();

 private:
  Status Prepare();
  Status CorrectPhoto(const std::string& photo);
  Status CorrectOpenedPhoto(Form1& form, const std::string& output_path);
  std::string OutputPath(const std::string& photo);
  Result<std::string> PlanOutput(const std::string& photo);
  std::string TakenText(const std::string& path) {
    return files().Display(path) + ": exists already";
  }
  Platform PlatformWith(PendingEvents& events) {
    return {files(), *system_.codec, *system_.jpeg,    dialogs_,
            events,  *system_.clock, system_.clipboard};
  }
  Files& files() { return *system_.files; }

  const CorrectOptions& options_;
  ConsoleHost& host_;
  ConsoleSystem system_;
  ConsoleDialogs dialogs_;
  StartingPoint start_;
};

int CorrectCommand::Run() {
  if (const Status prepared = Prepare(); !prepared.ok()) {
    host_.err << prepared.message << std::endl;
    return kWrongUsage;
  }
  int code = kDone;
  for (const std::string& photo : options_.photos) {
    if (host_.interrupted()) return kInterrupted;
    const Status corrected = CorrectPhoto(photo);
    if (corrected.ok()) continue;
    if (host_.interrupted()) return kInterrupted;
    host_.err << corrected.message << std::endl;
    code = kSomePhotoFailed;
  }
  return code;
}

Status CorrectCommand::Prepare() {
  const Status found = UseProgramFolder(options_.settings.program_folder, files(), start_.app);
  if (!found.ok()) return found;
  start_.app.open_mode = kLeaveSettingsAlone;
  ConsoleEvents events(host_.interrupted, start_.app.cancel_requested);
  Platform platform = PlatformWith(events);
  const Status applied = ApplySettings(options_.settings, platform, start_.app, start_.modules);
  if (!applied.ok()) return applied;
  LoadedLearning learnt = LoadLearningData(files(), start_.app.mode_folder);
  if (!learnt.status.ok()) host_.err << learnt.status.message << std::endl;
  start_.learning = std::move(learnt.data);
  return Status::Ok();
}

std::string CorrectCommand::OutputPath(const std::string& photo) {
  if (!options_.output.empty()) return files().Absolute(options_.output);
  std::string named_after = photo;
  if (!options_.output_folder.empty()) {
    std::string folder = files().Absolute(options_.output_folder);
    if (!folder.ends_with('\\')) folder += '\\';
    named_after = folder + SplitPhotoPath(photo).file_name;
  }
  OutputNames names;
  BuildOutputNames(names, named_after, files());
  return names.output_path;
}

// Looked at before the work begins: what cannot be saved is not worth correcting. The folder of the
// photo itself needs no look, because opening the photo tells more.
Result<std::string> CorrectCommand::PlanOutput(const std::string& photo) {
  const std::string path = OutputPath(photo);
  if (files().FileExists(path) || files().FolderExists(path)) {
    return Status::Error(Failure::kExists, TakenText(path));
  }
  const bool elsewhere = !options_.output.empty() || !options_.output_folder.empty();
  const std::string folder = SplitPhotoPath(path).folder;
  if (elsewhere && !files().FolderExists(folder)) {
    return Status::Error(Failure::kNotFound, files().Display(folder) + ": there is no such folder");
  }
  return path;
}

Status CorrectCommand::CorrectPhoto(const std::string& photo) {
  const std::string photo_path = files().Absolute(photo);
  try {
    const Result<std::string> output_path = PlanOutput(photo_path);
    if (!output_path.ok()) return output_path.status;

    Module1 app = start_.app;
    frmModules modules = start_.modules;
    std::optional<ProgressBar> bar;
    frmProgress progress;
    if (host_.err_is_terminal && !options_.settings.quiet) progress.view = &bar.emplace(host_.err);
    ConsoleEvents events(host_.interrupted, app.cancel_requested);
    Platform platform = PlatformWith(events);
    Form1 form{.app = app, .platform = platform, .modules = modules, .progress = progress};
    form.learning = start_.learning;
    form.threads =
        options_.settings.threads > 0 ? options_.settings.threads : SystemProcessorCount();

    app.opened_path = photo_path;
    return CorrectOpenedPhoto(form, *output_path);
  } catch (const std::bad_alloc&) {
    return Status::Error(Failure::kTooLarge, files().Display(photo_path) + ": not enough memory");
  }
}

Status CorrectCommand::CorrectOpenedPhoto(Form1& form, const std::string& output_path) {
  if (Status opened = FileOpen(form, /*show_dialog=*/false); !opened.ok()) return opened;
  if (Status adjusted = AdjustPhoto(form, options_.preview); !adjusted.ok()) return adjusted;
  const std::string record = form.app.learning_record;

  form.names.output_path = output_path;
  Status saved = FileSave(form, /*notify=*/false);
  // The save asks for another name only when a file of this one came up meanwhile.
  if (saved.failure == Failure::kCancelled && !form.app.cancel_requested) {
    return Status::Error(Failure::kExists, TakenText(output_path));
  }
  if (saved.ok() && options_.record && !record.empty()) host_.out << record << "\n" << std::flush;
  return saved;
}

}  // namespace

int RunCorrectCommand(const CorrectOptions& options, ConsoleHost& host) {
  return CorrectCommand(options, host).Run();
}

}  // namespace tarnwell
