#include "automation/auto_photo.h"

#include <algorithm>
#include <new>
#include <utility>

#include "automation/free_name.h"
#include "automation/name_plan.h"
#include "imaging/output_names.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"

namespace tarnwell {
namespace {

std::string StatusText(PhotoStep step, const std::string& name) {
  switch (step) {
    case PhotoStep::kLoading:
      return "Loading Image...";
    case PhotoStep::kCorrecting:
      return name + "\r\nCorrecting Image...";
    case PhotoStep::kSaving:
      return name + "\r\n" + kSavingText;
  }
  return {};
}

// A file about as large as the corrected photo at its largest. Where that finds no room the disk is
// as good as full.
std::size_t BytesOfCopy(const Form1& form) {
  constexpr std::size_t kLeast = std::size_t{1} << 16;
  constexpr std::size_t kMost = std::size_t{1} << 26;
  const Picture& photo = form.buffer.surfaces.picOriginal.picture;
  return std::clamp(photo ? photo->view().pixel_count() : 0, kLeast, kMost);
}

// A write into `folder` failed: is it the folder's fault, or the photo's own?
AutoPhotoOutcome WriteFailed(Files& files, const std::string& folder, std::size_t bytes, Status why,
                             std::string saved_as) {
  Status folder_takes = FolderTakes(files, folder, bytes);
  if (folder_takes.ok()) return {PhotoFate::kFailed, std::move(why), std::move(saved_as)};
  return {PhotoFate::kFolderFailed, std::move(folder_takes), std::move(saved_as)};
}

enum class Presence {
  kAsTakenUp,
  kChanged,
  kGone,
  kUnknown,     // its name is listed and cannot be looked at
  kOutOfReach,  // nor can its folder
};

struct Found {
  Presence presence;
  Status why = {};  // nothing is known
};

// What has become of a photo's file. Only a folder that can be read tells that the photo has left
// it: a lost connection looks the same from the photo's name alone, and so does a name that cannot
// be opened.
Found Find(Files& files, const AutoPhotoTask& task) {
  const Result<FolderEntry> found = files.Find(task.correct.photo);
  if (found.ok()) {
    const PhotoVersion now = {found->size, found->modified_nanos};
    return {now == task.version ? Presence::kAsTakenUp : Presence::kChanged};
  }
  const PhotoPathParts parts = SplitPhotoPath(task.correct.photo);
  const auto entries = files.List(parts.folder);
  if (!entries.ok()) return {Presence::kOutOfReach, entries.status};
  const bool listed = std::any_of(entries->begin(), entries->end(), [&](const FolderEntry& entry) {
    return entry.name == parts.file_name;
  });
  return listed ? Found{Presence::kUnknown, found.status} : Found{Presence::kGone};
}

AutoPhotoOutcome NotCorrected(Form1& form, const AutoPhotoTask& task, CorrectedPhoto corrected) {
  if (corrected.status.failure == Failure::kCancelled) {
    return {PhotoFate::kStopped, std::move(corrected.status), {}};
  }
  if (corrected.step == PhotoStep::kSaving) {
    return WriteFailed(form.platform.files, SplitPhotoPath(task.correct.wanted).folder,
                       BytesOfCopy(form), std::move(corrected.status), {});
  }
  PhotoFate fate = PhotoFate::kFailed;
  if (corrected.step == PhotoStep::kLoading) {
    Found found = Find(form.platform.files, task);
    if (found.presence == Presence::kOutOfReach) {
      return {PhotoFate::kFolderFailed, std::move(found.why), {}};
    }
    if (corrected.status.failure == Failure::kNoAccess) fate = PhotoFate::kWaits;
    if (found.presence == Presence::kGone) fate = PhotoFate::kGone;
  }
  return {fate, std::move(corrected.status), {}};
}

// What becomes of a photo whose copy is saved and which is to be moved.
PhotoFate FateBeforeTheMove(Presence presence) {
  switch (presence) {
    case Presence::kAsTakenUp:
      return PhotoFate::kDone;
    case Presence::kChanged:
      return PhotoFate::kChanged;
    case Presence::kGone:
      return PhotoFate::kGone;
    case Presence::kUnknown:
    case Presence::kOutOfReach:
      return PhotoFate::kFolderFailed;  // it was there a moment ago, and its copy is kept in mind
  }
  return PhotoFate::kFailed;
}

AutoPhotoOutcome MoveSource(Form1& form, const AutoPhotoTask& task, const std::string& saved_as,
                            NamePlan& plan) try {
  Files& files = form.platform.files;
  Found found = Find(files, task);
  if (found.presence != Presence::kAsTakenUp) {
    return {FateBeforeTheMove(found.presence), std::move(found.why), saved_as};
  }
  Status moved = files.Move(task.correct.photo, task.move_to);
  while (moved.failure == Failure::kExists) {
    moved = files.Move(task.correct.photo, plan.Take(task.move_wish));
  }
  if (moved.ok()) return {PhotoFate::kDone, std::move(moved), saved_as};
  found = Find(files, task);
  if (found.presence != Presence::kAsTakenUp) {
    return {FateBeforeTheMove(found.presence), std::move(found.why), saved_as};
  }
  AutoPhotoOutcome failed = WriteFailed(files, SplitPhotoPath(task.move_wish).folder,
                                        BytesOfCopy(form), std::move(moved), saved_as);
  if (failed.fate == PhotoFate::kFolderFailed) return failed;
  // Nothing can be taken out of a folder that takes nothing.
  return WriteFailed(files, SplitPhotoPath(task.correct.photo).folder, 1, std::move(failed.status),
                     saved_as);
} catch (const std::bad_alloc&) {
  // The copy is there; forgotten, it would be made once more.
  return {PhotoFate::kFolderFailed, Status::Error(Failure::kTooLarge, kNoMemory), saved_as};
}

}  // namespace

AutoPhotoOutcome ProcessPhoto(Form1& form, const AutoPhotoTask& task, NamePlan& plan,
                              const std::function<void(const std::string&)>& show_status) {
  const std::string name = SplitPhotoPath(task.correct.photo).file_name;
  const auto show = [&](PhotoStep step) { show_status(StatusText(step, name)); };
  if (!task.saved_as.empty()) {
    show(PhotoStep::kSaving);
    return MoveSource(form, task, task.saved_as, plan);
  }
  for (const auto& [path, wish] : {std::pair(task.correct.target, task.correct.wanted),
                                   std::pair(task.move_to, task.move_wish)}) {
    Status leads = NameLeadsSomewhere(form.platform.files, path, wish);
    if (!leads.ok()) return {PhotoFate::kFailed, std::move(leads), {}};
  }
  CorrectedPhoto corrected = CorrectPhoto(form, task.correct, plan, show);
  if (!corrected.status.ok()) return NotCorrected(form, task, std::move(corrected));
  AutoPhotoOutcome outcome = MoveSource(form, task, corrected.saved_as, plan);
  outcome.notes = std::move(corrected.notes);
  return outcome;
}

Status FolderTakes(Files& files, const std::string& folder, std::size_t bytes) try {
  const std::string path = files.TemporaryBeside(folder + "photo");
  Status taken = files.Replace(path, std::string(bytes, '\0'));
  if (taken.ok()) return files.Delete(path);
  // The user knows the folder, not the file that was tried.
  const std::string tried = files.Display(path);
  if (const std::size_t at = taken.message.find(tried); at != std::string::npos) {
    taken.message.replace(at, tried.size(), files.Display(folder));
  }
  return taken;
} catch (const std::bad_alloc&) {
  return Status::Error(Failure::kTooLarge, files.Display(folder) + ": not enough memory");
}

}  // namespace tarnwell
