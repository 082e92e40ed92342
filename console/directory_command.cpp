#include "console/directory_command.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "automation/adjust_directory.h"
#include "automation/correct_photo.h"
#include "automation/free_name.h"
#include "automation/name_plan.h"
#include "automation/photo_budget.h"
#include "automation/photo_workers.h"
#include "automation/unattended_dialogs.h"
#include "console/console_host.h"
#include "console/console_window.h"
#include "console/folder_progress.h"
#include "console/shown_text.h"
#include "imaging/output_names.h"
#include "imaging/photo_list.h"

namespace tarnwell {
namespace {

class DirectoryCommand {
 public:
  DirectoryCommand(const DirectoryOptions& options, ConsoleHost& host)
      : settings_(options.settings), named_(options.folder), host_(host) {}

  int Run();

 private:
  struct Photo {
    PhotoTask task;
    std::uint64_t memory = 0;
    std::optional<Status> status;  // nothing when it was not begun
  };

  Status PrepareSettings();
  Status ListFolder();
  void CorrectAll();
  bool Begin(std::size_t index);
  void Correct(std::size_t index);
  std::string SummaryText(std::size_t corrected);
  int Summarize();
  void Tell(const std::string& text);
  Files& files() { return *system_.files; }

  const Settings& settings_;
  const std::string& named_;
  ConsoleHost& host_;
  ConsoleSystem system_;
  StartingPoint start_;
  std::string folder_;
  std::vector<Photo> photos_;
  NamePlan plan_{files()};
  MemoryBudget budget_{BudgetOfThisMachine()};
  int workers_ = 1;
  std::optional<FolderProgress> progress_;
  UnattendedDialogs dialogs_{[this](const std::string& text) { Tell(text); }};
};

Status DirectoryCommand::PrepareSettings() {
  ConsoleWindow window(start_, system_, dialogs_, host_.interrupted, 1);
  return Prepare(settings_, window.platform, host_.err, start_);
}

// Finds the folder's photos and where each goes, in the order of their names.
Status DirectoryCommand::ListFolder() {
  folder_ = files().Absolute(named_);
  if (files().FolderExists(folder_)) {
    if (!folder_.ends_with('\\')) folder_ += '\\';
  } else if (files().FileExists(folder_)) {
    folder_ = SplitPhotoPath(folder_).folder;
  } else {
    return Status::Error(Failure::kNotFound,
                         files().Display(folder_) + ": no such folder and no such photo");
  }
  const auto names = ListPhotos(files(), folder_);
  if (!names.ok()) return names.status;
  const std::string output = folder_ + kOutputSubfolder;
  if (!names->empty() && !files().FolderExists(output)) {
    if (Status made = files().CreateFolder(output); !made.ok()) return made;
  }
  DeleteStrayTemporaries(output);
  for (const std::string& name : *names) {
    const std::string wanted = output + name.substr(0, name.rfind('.')) + ".jpg";
    Photo photo;
    photo.task = {folder_ + name, wanted, plan_.Take(wanted)};
    photos_.push_back(std::move(photo));
  }
  return Status::Ok();
}

bool DirectoryCommand::Begin(std::size_t index) {
  if (host_.interrupted()) return false;
  Photo& photo = photos_[index];
  photo.memory = MemoryForPhoto(files(), start_.modules, photo.task.photo);
  budget_.Take(photo.memory);
  photo.status = Status::Error(Failure::kCancelled, "");
  return true;
}

void DirectoryCommand::Correct(std::size_t index) {
  Photo& photo = photos_[index];
  const TakenMemory taken(budget_, photo.memory);
  const auto view = progress_->Begin(index + 1, SplitPhotoPath(photo.task.photo).file_name);
  const int threads = ThreadsPerPhoto(budget_, photo.memory, ThreadsOf(settings_), workers_);
  ConsoleSystem system;  // its codecs are shared with nobody
  ConsoleWindow window(start_, system, dialogs_, host_.interrupted, threads, view.get());
  photo.status = NameLeadsSomewhere(files(), photo.task.target, photo.task.wanted);
  if (photo.status->ok()) {
    CorrectedPhoto corrected = CorrectPhoto(window.form, photo.task, plan_, [](PhotoStep) {});
    for (const std::string& note : corrected.notes) dialogs_.Tell({{}, note, Icon::kInformation});
    photo.status = std::move(corrected.status);
  }
  progress_->Done();
}

void DirectoryCommand::CorrectAll() {
  workers_ = static_cast<int>(std::clamp<std::size_t>(photos_.size(), 1, ThreadsOf(settings_)));
  ForEachPhoto(
      photos_.size(), workers_, [&](std::size_t index) { return Begin(index); },
      [&](std::size_t index) { Correct(index); });
}

std::string DirectoryCommand::SummaryText(std::size_t corrected) {
  if (photos_.empty()) return "There are no photos in " + files().Display(folder_);
  return SavedText(corrected, photos_.size(), files().Display(folder_ + kOutputSubfolder));
}

int DirectoryCommand::Summarize() {
  const auto corrected = std::count_if(photos_.begin(), photos_.end(), [](const Photo& photo) {
    return photo.status && photo.status->ok();
  });
  bool failed = false;
  for (const Photo& photo : photos_) {
    if (!photo.status || photo.status->ok()) continue;
    if (photo.status->failure == Failure::kCancelled && host_.interrupted()) continue;
    TellLine(host_.err, photo.status->message);
    failed = true;
  }
  if (!settings_.quiet) {
    TellLine(host_.err, SummaryText(corrected));
  }
  host_.err << std::flush;
  if (host_.interrupted()) return kInterrupted;
  return failed ? kSomePhotoFailed : kDone;
}

void DirectoryCommand::Tell(const std::string& text) {
  if (progress_) {
    progress_->Tell(text);
  } else {
    TellLine(host_.err, text);
  }
}

int DirectoryCommand::Run() {
  Status status = PrepareSettings();
  if (!status.ok()) {
    TellLine(host_.err, status.message);
    return CodeOfRefusal(status);
  }
  status = ListFolder();
  if (!status.ok()) {
    TellLine(host_.err, status.message);
    return kSomePhotoFailed;
  }
  const bool drawn = host_.err_is_terminal && !settings_.quiet;
  progress_.emplace(host_, drawn, *system_.clock, photos_.size());
  CorrectAll();
  progress_.reset();
  return Summarize();
}

}  // namespace

int RunDirectoryCommand(const DirectoryOptions& options, ConsoleHost& host) {
  return DirectoryCommand(options, host).Run();
}

}  // namespace tarnwell
