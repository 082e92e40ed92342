#include "automation/adjust_directory.h"

#include "automation/free_name.h"
#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "imaging/file_save.h"
#include "imaging/load_photo.h"
#include "imaging/open_photo_kept.h"
#include "imaging/photo_list.h"
#include "imaging/photo_title.h"
#include "imaging/thumbnail.h"
#include "modules/frm_modules.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

Status CancelledPhoto(const std::string& path) {
  return Status::Error(Failure::kCancelled, path + ": was not corrected");
}

// Takes the photo into the window. Unlike opening it by hand this leaves the settings alone.
Status LoadPhoto(Form1& form, const std::string& path, const std::string& name) {
  auto photo = LoadPhotoFile(form, path);
  if (!photo.ok()) return photo.status;
  form.app.current_file = path;
  TakeAsOriginal(form, std::move(*photo));
  ShowOriginalAsSource(form.buffer.surfaces);
  ShowPhotoName(form, name);
  MakeThumbnail(form.buffer, form.platform.events);
  // The analysis pass clears the cancel flag: a click until now must not be lost.
  if (form.app.cancel_requested) return CancelledPhoto(path);
  return AnalyzeOpenedPhoto(form);
}

Status CorrectOne(Form1& form, const std::string& folder, const std::string& name,
                  const DirectoryFollower& follower) {
  Files& files = form.platform.files;
  const std::string target = folder + kOutputSubfolder + name.substr(0, name.rfind('.')) + ".jpg";
  if (Status leads = NameLeadsSomewhere(files, FreeName(target, files), target); !leads.ok()) {
    return leads;
  }
  if (Status loaded = LoadPhoto(form, folder + name, name); !loaded.ok()) return loaded;
  if (form.app.cancel_requested) return CancelledPhoto(folder + name);
  follower.shown();
  if (Status adjusted = AdjustPhoto(form, /*preview=*/false); !adjusted.ok()) return adjusted;
  form.names.output_path = FreeName(target, files);
  return FileSave(form, /*notify=*/false);
}

Status MakeOutputFolder(Files& files, const std::string& folder) {
  if (files.FolderExists(folder)) return Status::Ok();
  return files.CreateFolder(folder);
}

}  // namespace

std::string SavedText(std::size_t corrected, std::size_t total, const std::string& output_folder) {
  return std::to_string(corrected) + " of " + std::to_string(total) +
         (total == 1 ? " photo " : " photos ") + (corrected == 1 || total == 1 ? "was" : "were") +
         " corrected and saved in " + output_folder;
}

Result<DirectoryOutcome> AdjustDirectory(Form1& form, const DirectoryFollower& follower) {
  Files& files = form.platform.files;
  const std::string folder = SplitPhotoPath(files.Absolute(form.app.current_file)).folder;
  auto photos = ListPhotos(files, folder);
  if (!photos.ok()) return photos.status;
  if (Status made = MakeOutputFolder(files, folder + kOutputSubfolder); !made.ok()) return made;

  const OpenPhotoKept kept(form);
  form.app.suppress_learning = true;  // the program must not learn from itself
  form.app.cancel_requested = false;
  form.File1 = *photos;
  DirectoryOutcome outcome;
  form.collect_note = [&outcome](const std::string& note) { outcome.notes.push_back(note); };
  outcome.total = static_cast<int>(form.File1.size());
  for (int i = 0; i < outcome.total && !outcome.cancelled; ++i) {
    follower.begins(i + 1, outcome.total, form.File1[i]);
    const Status status = CorrectOne(form, folder, form.File1[i], follower);
    if (status.ok()) ++outcome.corrected;
    outcome.cancelled = status.failure == Failure::kCancelled || form.app.cancel_requested;
    if (!status.ok() && !outcome.cancelled) outcome.failures.push_back(status.message);
  }
  return outcome;
}

}  // namespace tarnwell
