#include "console/correct_command.h"

#include <new>
#include <optional>
#include <string>
#include <utility>

#include "console/console_dialogs.h"
#include "console/console_host.h"
#include "console/console_window.h"
#include "console/progress_bar.h"
#include "console/shown_text.h"
#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "imaging/file_save.h"
#include "imaging/output_names.h"
#include "imaging/photo_metadata.h"
#include "modules/frm_modules.h"

namespace tarnwell {
namespace {

// A photo as the user named it, and in full.
struct NamedPhoto {
  std::string given;
  std::string path;
};

// The folder of a path in the user's own spelling, up to and including its last separator.
std::string FolderAsGiven(const std::string& path) {
  return path.substr(0, path.find_last_of("/\\") + 1);
}

class CorrectCommand {
 public:
  CorrectCommand(const CorrectOptions& options, ConsoleHost& host)
      : options_(options), host_(host), dialogs_(host.err, options.preview) {}

  int Run();

 private:
  Status PrepareSettings();
  Status CorrectPhoto(const std::string& given);
  Status CorrectOpenedPhoto(Form1& form, const NamedPhoto& photo, const std::string& output_path);
  Status Save(Form1& form, const NamedPhoto& photo, std::string output_path);
  void TellSaved(const NamedPhoto& photo, const std::string& path);
  std::string OutputPath(const std::string& photo);
  Result<std::string> PlanOutput(const std::string& photo);
  std::string TakenText(const std::string& path) {
    return files().Display(path) + ": exists already";
  }
  Files& files() { return *system_.files; }

  const CorrectOptions& options_;
  ConsoleHost& host_;
  ConsoleSystem system_;
  ConsoleDialogs dialogs_;
  StartingPoint start_;
};

int CorrectCommand::Run() {
  if (const Status prepared = PrepareSettings(); !prepared.ok()) {
    TellLine(host_.err, prepared.message);
    return CodeOfRefusal(prepared);
  }
  int code = kDone;
  for (const std::string& photo : options_.photos) {
    if (host_.interrupted()) return kInterrupted;
    const Status corrected = CorrectPhoto(photo);
    if (corrected.ok()) continue;
    if (host_.interrupted()) return kInterrupted;
    TellLine(host_.err, corrected.message);
    code = kSomePhotoFailed;
  }
  return code;
}

Status CorrectCommand::PrepareSettings() {
  ConsoleWindow window(start_, system_, dialogs_, host_.interrupted, 1);
  return Prepare(options_.settings, window.platform, host_.err, start_);
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
  std::string path = OutputPath(photo);
  while (files().NameIsTaken(path)) {
    if (!options_.output.empty()) return Status::Error(Failure::kExists, TakenText(path));
    // Another program may have taken the name since it was proposed; the last of all names is
    // proposed again and again.
    std::string next = OutputPath(photo);
    if (next == path) {
      return Status::Error(Failure::kExists, TakenText(path) +
                                                 ", and so do all names before; --output names "
                                                 "another");
    }
    path = std::move(next);
  }
  const bool elsewhere = !options_.output.empty() || !options_.output_folder.empty();
  const std::string folder = SplitPhotoPath(path).folder;
  if (elsewhere && !files().FolderExists(folder)) {
    return Status::Error(Failure::kNotFound, files().Display(folder) + ": no such folder");
  }
  return path;
}

Status CorrectCommand::CorrectPhoto(const std::string& given) {
  const NamedPhoto photo = {files().Display(given), files().Absolute(given)};
  try {
    const Result<std::string> output_path = PlanOutput(photo.path);
    if (!output_path.ok()) return output_path.status;

    std::optional<ProgressBar> bar;
    if (host_.err_is_terminal && !options_.settings.quiet) {
      bar.emplace(TerminalLine(host_.err, host_.columns));
    }
    ConsoleWindow window(start_, system_, dialogs_, host_.interrupted, ThreadsOf(options_.settings),
                         bar ? &*bar : nullptr);
    window.app.opened_path = photo.path;
    window.form.collect_note = [&](const std::string& note) {
      TellLine(host_.err, FolderAsGiven(photo.given) + note);
    };
    return CorrectOpenedPhoto(window.form, photo, *output_path);
  } catch (const std::bad_alloc&) {
    return Status::Error(Failure::kTooLarge, files().Display(photo.path) + ": not enough memory");
  }
}

Status CorrectCommand::CorrectOpenedPhoto(Form1& form, const NamedPhoto& photo,
                                          const std::string& output_path) {
  if (Status opened = FileOpen(form, /*show_dialog=*/false); !opened.ok()) return opened;
  if (Status adjusted = AdjustPhoto(form, options_.preview); !adjusted.ok()) return adjusted;
  const std::string record = form.app.learning_record;
  const std::string learnt = ProposalText(form.learnt);
  if (!options_.settings.quiet && !learnt.empty()) {
    TellLine(host_.err, photo.given + ": " + learnt);
  }

  Status saved = Save(form, photo, output_path);
  if (saved.ok() && options_.record && !record.empty()) host_.out << record << "\n" << std::flush;
  return saved;
}

// The program may have chosen the name, and the user wants to find the file.
void CorrectCommand::TellSaved(const NamedPhoto& photo, const std::string& path) {
  if (options_.settings.quiet) return;
  std::string shown = files().Display(options_.output);
  if (shown.empty()) {
    shown = files().Display(options_.output_folder);
    if (shown.empty()) shown = FolderAsGiven(photo.given);
    if (!shown.empty() && FolderAsGiven(shown) != shown) shown += files().Display("\\");
    shown += SplitPhotoPath(path).file_name;
  }
  TellLine(host_.err, photo.given + ": saved as " + shown + HowWritten(path));
}

Status CorrectCommand::Save(Form1& form, const NamedPhoto& photo, std::string output_path) {
  for (;;) {
    form.names.output_path = output_path;
    Status saved = FileSave(form, /*notify=*/false);
    if (saved.ok()) TellSaved(photo, output_path);
    if (saved.failure != Failure::kNameTaken) return saved;
    if (!options_.output.empty()) return Status::Error(Failure::kExists, TakenText(output_path));
    Result<std::string> next = PlanOutput(photo.path);
    if (!next.ok()) return next.status;
    // Taken, but not to be seen: the next would be tried for ever.
    if (*next == output_path) return Status::Error(Failure::kExists, TakenText(output_path));
    output_path = std::move(*next);
  }
}

}  // namespace

int RunCorrectCommand(const CorrectOptions& options, ConsoleHost& host) {
  return CorrectCommand(options, host).Run();
}

}  // namespace tarnwell
