#include "imaging/file_open.h"

#include <utility>

#include "engine/adjust_photo.h"
#include "imaging/file_save.h"
#include "imaging/load_photo.h"
#include "imaging/open_photo_kept.h"
#include "imaging/output_names.h"
#include "imaging/photo_title.h"
#include "imaging/thumbnail.h"
#include "modules/frm_modules.h"
#include "modules/hue_in.h"
#include "modules/open_mode.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"
#include "shell/tell.h"

namespace tarnwell {
namespace {

constexpr char kOpenTitle[] = "Open Photo";
constexpr char kOpenFilter[] = "Image Files (*.bmp; *.gif; *.jpg)|*.bmp;*.gif;*.jpg";

// The path to open: from the dialog, or handed over. Empty when there is none.
std::string PathToOpen(Form1& form, bool show_dialog) {
  if (!show_dialog) return form.app.opened_path;
  return form.platform.dialogs.ChooseOpenFile(kOpenTitle, kOpenFilter).value_or("");
}

}  // namespace

bool AskToSaveChanges(Form1& form) {
  if (!form.app.photo_changed) return true;
  const std::string question =
      "Do you want to save the changes you made to " + CurrentPhotoName(form) + "?";
  switch (form.platform.dialogs.Ask(
      {form.app.title, question, Icon::kQuestion, Topic::kUnsavedChanges})) {
    case Answer::kCancel:
      return false;
    case Answer::kNo:
      return true;
    case Answer::kYes:
      break;
  }
  const Status saved = FileSave(form, /*notify=*/true);
  TellFailure(form, saved);
  return saved.ok();
}

Status FileOpen(Form1& form, bool show_dialog) {
  if (!AskToSaveChanges(form)) {
    return Status::Error(Failure::kCancelled, CurrentPhotoName(form) + ": stays open");
  }
  const std::string path = PathToOpen(form, show_dialog);
  if (path.empty()) return Status::Error(Failure::kCancelled, "No photo was chosen.");

  return OpenPhotoFile(form, path);
}

namespace {

// A pasted photo has no path.
Status NoMemoryToOpen(const Form1& form) {
  const std::string& path = form.app.current_file;
  const std::string name =
      path.empty() ? CurrentPhotoName(form) : form.platform.files.Display(path);
  return Status::Error(Failure::kTooLarge, name + ": not enough memory");
}

// Takes the photo that picOriginal displays into the rest of the window.
Status ShowOpenedPhoto(Form1& form) {
  Module1& app = form.app;
  PhotoSurfaces& surfaces = form.buffer.surfaces;

  // Nothing has been measured, corrected or learnt of this photo yet.
  app.photo_changed = false;
  app.learning_record.clear();
  form.correction_ready = false;
  form.correction_cancelled = false;

  surfaces.picSource.visible = false;
  surfaces.picReturn.visible = false;
  ShowPhotoName(form, SplitPhotoPath(app.current_file).file_name);

  ShowOriginalAsSource(surfaces);
  if (!MakeThumbnail(form.buffer, form.platform.events)) return NoMemoryToOpen(form);
  // The preview's mean is the photo's, and costs nothing.
  GetHueIn(form.modules.hue, surfaces.picThumb.picture->view());
  ResetAll(app, form.platform, form.modules);
  surfaces.picThumb.visible = true;
  BuildOutputNames(form.names, app.current_file, form.platform.files);
  return AnalyzeOpenedPhoto(form);
}

Status TakeIn(Form1& form, const std::string& path, LoadedPhoto photo) {
  OpenPhotoKept before(form);
  form.app.opened_path = path;
  form.app.current_file = path;
  TakeAsOriginal(form, std::move(photo));
  Status shown = ShowOpenedPhoto(form);
  if (shown.ok()) before.Forget();
  return shown;
}

}  // namespace

Status OpenLoadedPhoto(Form1& form, const std::string& path, LoadedPhoto photo) {
  if (Status taken = TakeIn(form, path, std::move(photo)); !taken.ok()) return taken;
  if (form.app.auto_preview) TellFailure(form, AdjustPhoto(form, /*preview=*/true));
  return Status::Ok();
}

Status OpenPhotoFile(Form1& form, const std::string& path) {
  // Decoded before anything changes, so that a photo that cannot be read leaves the window alone.
  const bool cancel_requested = form.app.cancel_requested;
  Result<LoadedPhoto> photo = LoadPhotoFile(form, path);
  Status opened = photo.ok() ? OpenLoadedPhoto(form, path, std::move(*photo)) : photo.status;
  // What was cancelled is the opening, which is over.
  if (!opened.ok()) form.app.cancel_requested = cancel_requested;
  return opened;
}

void TakeAsOriginal(Form1& form, LoadedPhoto photo) {
  Display(form.buffer.surfaces.picOriginal, std::move(photo.picture));
  form.buffer.surfaces.picOriginal.turned = false;
  form.metadata = std::move(photo.metadata);
  form.metadata_notes_told = false;
}

}  // namespace tarnwell
