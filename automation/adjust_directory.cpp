#include "automation/adjust_directory.h"

#include <array>

#include "automation/free_name.h"
#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "imaging/file_save.h"
#include "imaging/load_photo.h"
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

// What the window shows of the open photo, put back at the end of the scope. Pictures are shared,
// so keeping them costs nothing.
class OpenPhotoKept {
 public:
  explicit OpenPhotoKept(Form1& form)
      : form_(form),
        app_(form.app),
        surfaces_(form.buffer.surfaces),
        metadata_(form.metadata),
        metadata_notes_told_(form.metadata_notes_told),
        collect_note_(std::move(form.collect_note)),
        names_(form.names),
        histogram_(form.histogram),
        learnt_(form.learnt),
        hue_swatches_(form.modules.hue.lblHue),
        correction_ready_(form.correction_ready),
        title_(form.lblTitleCaption),
        caption_(form.caption) {}
  ~OpenPhotoKept() {
    form_.app.current_file = app_.current_file;
    form_.app.opened_path = app_.opened_path;
    form_.app.photo_changed = app_.photo_changed;
    form_.app.learning_record = app_.learning_record;
    form_.app.suppress_learning = app_.suppress_learning;
    form_.buffer.surfaces = surfaces_;
    form_.buffer.shadow_width = surfaces_.picThumb.width;
    form_.buffer.shadow_height = surfaces_.picThumb.height;
    form_.metadata = metadata_;
    form_.metadata_notes_told = metadata_notes_told_;
    form_.collect_note = collect_note_;
    form_.names = names_;
    form_.histogram = histogram_;
    form_.learnt = learnt_;
    form_.modules.hue.lblHue = hue_swatches_;
    form_.correction_ready = correction_ready_;
    form_.lblTitleCaption = title_;
    form_.caption = caption_;
  }
  OpenPhotoKept(const OpenPhotoKept&) = delete;
  OpenPhotoKept& operator=(const OpenPhotoKept&) = delete;

 private:
  Form1& form_;
  const Module1 app_;
  const PhotoSurfaces surfaces_;
  const SharedMetadata metadata_;
  const bool metadata_notes_told_;
  const std::function<void(const std::string&)> collect_note_;
  const OutputNames names_;
  const PictureHistogram histogram_;
  const LearntProposal learnt_;
  const std::array<Rgb, 2> hue_swatches_;
  const bool correction_ready_;
  const std::string title_;
  const std::string caption_;
};

Status CancelledPhoto(const std::string& path) {
  return Status::Error(Failure::kCancelled, path + ": was not corrected");
}

// Takes the photo into the window. Unlike opening it by hand this leaves the settings alone.
Status LoadPhoto(Form1& form, const std::string& path, const std::string& name) {
  auto photo = LoadPhotoFile(form.platform, form.modules, path);
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
