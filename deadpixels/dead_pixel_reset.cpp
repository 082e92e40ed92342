#include "deadpixels/dead_pixel_reset.h"

#include <string>
#include <vector>

#include "deadpixels/dead_pixel_files.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

// On purpose the title of the learning system's reset.
constexpr char kResetTitle[] = "Reset Learning System";

void KeepFirst(Status& first, const Status& next) {
  if (first.ok() && next.failure != Failure::kNotFound) first = next;
}

Status DeleteFilesOf(Files& files, const std::string& folder) {
  const Result<std::vector<FolderEntry>> entries = files.List(folder);
  if (!entries.ok()) return entries.status;
  Status outcome;
  for (const FolderEntry& entry : *entries) {
    if (!entry.is_folder) KeepFirst(outcome, files.Delete(folder + entry.name));
  }
  return outcome;
}

}  // namespace

Status DeleteDeadPixelData(const Module1& app, Files& files) {
  const std::string folder = DeadPixelsFolder(app);
  const Result<std::vector<FolderEntry>> entries = files.List(folder);
  if (entries.status.failure == Failure::kNotFound) return Status::Ok();
  if (!entries.ok()) return entries.status;
  Status outcome;
  for (const FolderEntry& entry : *entries) {
    if (!entry.is_folder) continue;
    // An empty folder goes at once, and so does a link to one: what it leads to lies elsewhere and
    // is not ours.
    if (files.DeleteFolder(folder + entry.name).ok()) continue;
    KeepFirst(outcome, DeleteFilesOf(files, folder + entry.name + "\\"));
    KeepFirst(outcome, files.DeleteFolder(folder + entry.name));
  }
  KeepFirst(outcome, DeleteFilesOf(files, folder));
  return outcome;
}

void ResetDeadPixelSystem(const Module1& app, Platform& platform) {
  const Answer answer = platform.dialogs.Ask(
      {kResetTitle,
       "This will permanently delete the dead pixel maps and sample images for "
       "the current camera, continue?",
       Icon::kExclamation});
  if (answer != Answer::kYes) return;
  const Status deleted = DeleteDeadPixelData(app, platform.files);
  platform.dialogs.Tell(
      {kResetTitle,
       deleted.ok() ? "Dead pixel system for current camera has been reset." : deleted.message,
       deleted.ok() ? Icon::kInformation : Icon::kExclamation});
}

}  // namespace tarnwell
