#include "imaging/file_save.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "engine/adjust_photo.h"
#include "engine/learning_store.h"
#include "imaging/cdib_section.h"
#include "imaging/jpeg_library.h"
#include "imaging/jpeg_segments.h"
#include "imaging/metadata_to_save.h"
#include "imaging/output_names.h"
#include "imaging/photo_metadata.h"
#include "imaging/photo_title.h"
#include "imaging/save_jpeg_file.h"
#include "modules/frm_modules.h"
#include "modules/hue_in.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/picture_codec.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/frm_progress.h"
#include "shell/long_work.h"
#include "shell/module1.h"
#include "shell/tell.h"

namespace tarnwell {
namespace {

constexpr char kNameTakenTitle[] = "Photo File Exists...";
constexpr char kSaveTitle[] = "Save Photo";
constexpr char kSaveFilter[] = "JPEG Image (*.jpg)|*.jpg|Bitmap (*.bmp)|*.bmp";
constexpr char kNotAppliedQuestion[] =
    "You have not yet applied your changes to the full photo, would you like to do that now?\r\r"
    "Click Yes to adjust full photo, or No to save the adjusted thumbnail";
constexpr int kNotificationMilliseconds = 1800;

// The user knows why.
Status NotSaved(const Form1& form, Failure failure) {
  return Status::Error(failure, CurrentPhotoName(form) + ": was not saved");
}

std::int64_t Area(const PictureSurface& surface) {
  return surface.picture ? static_cast<std::int64_t>(surface.picture->view().pixel_count()) : 0;
}

// When only the thumbnail was corrected: asks, and corrects the full photo on Yes. `thumbnail_only`
// tells that the thumbnail itself is to be saved.
Status SettleWhatToSave(Form1& form, bool& thumbnail_only) {
  const PhotoSurfaces& surfaces = form.buffer.surfaces;
  thumbnail_only = false;
  if (Area(surfaces.picSource) == Area(surfaces.picOriginal)) return Status::Ok();

  switch (form.platform.dialogs.Ask(
      {form.app.title, kNotAppliedQuestion, Icon::kQuestion, Topic::kUnappliedChanges})) {
    case Answer::kCancel:
      return NotSaved(form, Failure::kCancelled);
    case Answer::kNo:
      thumbnail_only = true;
      break;
    case Answer::kYes:
      if (Status adjusted = AdjustPhoto(form, /*preview=*/false); !adjusted.ok()) return adjusted;
      return form.app.cancel_requested ? NotSaved(form, Failure::kCancelled) : Status::Ok();
  }
  if (!form.correction_cancelled) return Status::Ok();
  form.platform.dialogs.Tell({form.app.title,
                              CurrentPhotoName(form) +
                                  " was not saved, because its last correction was cancelled. "
                                  "Correct it again first.",
                              Icon::kInformation});
  return NotSaved(form, Failure::kCancelled);
}

bool IsUnnamed(const std::string& path) { return path.empty() || path == kOtherPrompt; }

void RefuseTakenName(Form1& form) {
  const std::string& title = form.app.title;
  form.platform.dialogs.Tell(
      {kNameTakenTitle,
       title + " has detected that a photo with the file already exists. " + title +
           " currently has a policy of not overwriting photos, please define "
           "a different name for this photo.",
       Icon::kExclamation, Topic::kTakenName});
  form.names.output_path.clear();
}

// Asks for an output path where there is none. False when there is none afterwards, either.
bool SettleOutputPath(Form1& form) {
  std::string& path = form.names.output_path;
  if (IsUnnamed(path)) {
    // A cancelled dialog leaves the path unchanged.
    path = form.platform.dialogs.ChooseSaveFile(kSaveTitle, kSaveFilter, TakenNames::kLeave)
               .value_or(path);
  }
  return !IsUnnamed(path);
}

std::string InOneText(const std::vector<std::string>& sentences) {
  std::string text;
  for (const std::string& sentence : sentences) text += (text.empty() ? "" : " ") + sentence;
  return text;
}

// What the saved file does not keep: of a bitmap always, of a JPEG file once per photo. What was
// left out when the photo was read is told with the first of them.
void TellWhatIsLost(Form1& form, bool as_jpeg, std::vector<std::string> lost) {
  if (!form.metadata) return;
  const bool told = std::exchange(form.metadata_notes_told, true);
  if (told && as_jpeg) return;
  if (!told) lost.insert(lost.begin(), form.metadata->notes.begin(), form.metadata->notes.end());
  const std::string words = as_jpeg ? "" : WhatPixelsAloneLose(*form.metadata);
  if (!words.empty()) lost.push_back("A bitmap cannot keep its " + words + ".");
  if (!lost.empty()) TellNote(form, InOneText(lost));
}

// The quality to save with: the slider's, or the photo's own where that is wanted and known.
std::optional<int> SavedQuality(const Form1& form) {
  const bool own = form.modules.save_switches[kQualityAsOriginal] && form.metadata &&
                   form.metadata->jpeg_quality;
  std::optional<int> quality =
      own ? form.metadata->jpeg_quality : form.modules.Value(kJpegQualitySlider);
  if (quality) quality = std::clamp(*quality, 0, 100);
  return quality;
}

// Names the photo where its own quality is wanted and it has none.
void TellOtherQuality(Form1& form, bool as_jpeg) {
  const bool own = form.metadata && form.metadata->jpeg_quality;
  if (!as_jpeg || own || !form.modules.save_switches[kQualityAsOriginal]) return;
  if (!form.tells_other_quality) return;
  TellNote(form, "Saved with quality " + std::to_string(SavedQuality(form).value_or(0)) +
                     ", because the photo has none of its own.");
}

// What is written, and how: all that the writing needs, so that it can look away from the form.
struct PhotoToWrite {
  Picture picture;
  bool as_jpeg = false;
  int quality = 0;       // of a JPEG file
  std::string segments;  // likewise
};

Status NoMemoryToSave(Files& files, const std::string& path) {
  return Status::Error(Failure::kTooLarge,
                       files.Display(path) + ": there is not enough memory to save");
}

// Through a section of 24 bits and without segments: what the external library knows. The segments
// come in afterwards.
Status WriteJpegSection(Form1& form, const std::string& path, const PhotoToWrite& photo) try {
  Files& files = form.platform.files;
  const std::string shown_path = files.Display(path);
  cDIBSection section;
  section.CreateFromPicture(photo.picture->view());
  if (section.DIBSectionBitsPtr() == nullptr) return NoMemoryToSave(files, path);
  const bool written = SaveJpegFile(section, path, photo.quality, form.platform.jpeg,
                                    form.platform.dialogs, form.app.title);
  if (!written) {
    return Status::Error(Failure::kOther, shown_path + ": the JPEG file could not be written");
  }
  if (photo.segments.empty()) return Status::Ok();
  const Result<std::string> plain = files.Read(path);
  if (!plain.ok()) return plain.status;
  return files.Replace(path, WithSegments(*plain, photo.segments));
} catch (const std::bad_alloc&) {
  return NoMemoryToSave(form.platform.files, path);
}

// `lost` is told what of the photo's metadata cannot be kept.
Result<PhotoToWrite> PrepareToWrite(Form1& form, bool as_jpeg, std::vector<std::string>& lost) {
  const PictureSurface& source = form.buffer.surfaces.picSource;
  PhotoToWrite photo;
  photo.picture = as_jpeg ? source.picture : source.image;
  photo.as_jpeg = as_jpeg;
  if (!as_jpeg) return photo;
  const std::optional<int> quality = SavedQuality(form);
  if (!quality) {
    return Status::Error(Failure::kOther, form.platform.files.Display(form.names.output_path) +
                                              ": the JPEG quality is no whole number");
  }
  photo.quality = *quality;
  if (!form.metadata) return photo;
  MetadataToSave kept = MetadataFor(
      *form.metadata, photo.picture->view(),
      {.leave_place_out = form.modules.save_switches[kLeavePlaceOut], .turned = source.turned});
  lost = std::move(kept.notes);
  photo.segments = std::move(kept.segments);
  return photo;
}

// The user chose `path` and never heard of the temporary file beside it.
Status InNameOf(Status status, const std::string& path, const std::string& temporary) {
  if (const std::size_t at = status.message.find(temporary); at != std::string::npos) {
    status.message.replace(at, temporary.size(), path);
  }
  return status;
}

// Gives the written `temporary` its name `path`; when the writing failed or was cancelled it goes.
Status Publish(Files& files, Status written, const std::string& temporary,
               const std::string& path) {
  if (written.ok()) return files.Publish(temporary, path);
  // Most often there is no file; how the clean-up goes changes nothing for the user.
  static_cast<void>(files.Delete(temporary));
  return written;
}

Status WriteImage(const Platform& platform, const PhotoToWrite& photo, int threads,
                  const std::string& path, const GoOn& go_on) try {
  const PixelView pixels = photo.picture->view();
  if (!photo.as_jpeg) return platform.codec.SaveBitmap(path, pixels, go_on);
  return platform.jpeg.WritePicture(path, {pixels, photo.quality, HalvesChrominance(photo.quality),
                                           threads, photo.segments, go_on});
} catch (const std::bad_alloc&) {
  return NoMemoryToSave(platform.files, path);
}

// Writes and publishes `photo` while events run.
Status WriteBesideEvents(Form1& form, const PhotoToWrite& photo, const std::string& temporary,
                         const std::string& path) {
  const Platform& platform = form.platform;
  const int threads = form.threads;
  Status status;
  form.progress.caption = ProgressCaption(CurrentPhotoName(form));
  DoBesideEvents(form, "Saving Photo...", [&](const GoOn& go_on) {
    status = Publish(platform.files, WriteImage(platform, photo, threads, temporary, go_on),
                     temporary, path);
  });
  return status;
}

// Writes the working image to the new file names.output_path, in the format that its extension
// says. Whatever fails leaves no file; kExists when the name was taken meanwhile. `lost` is told
// what of the photo's metadata could not be kept.
Status WritePhoto(Form1& form, bool as_jpeg, std::vector<std::string>& lost) try {
  Files& files = form.platform.files;
  const std::string path = form.names.output_path;
  const std::string temporary = files.TemporaryBeside(path);
  const Result<PhotoToWrite> photo = PrepareToWrite(form, as_jpeg, lost);
  if (!photo.ok()) return photo.status;
  // The external library's calls may bring up message boxes, which belong to this thread.
  const bool beside_events = !as_jpeg || form.platform.jpeg.TakesPictures();
  Status status = beside_events
                      ? WriteBesideEvents(form, *photo, temporary, path)
                      : Publish(files, WriteJpegSection(form, temporary, *photo), temporary, path);
  return InNameOf(std::move(status), files.Display(path), files.Display(temporary));
} catch (const std::bad_alloc&) {
  return NoMemoryToSave(form.platform.files, form.names.output_path);
}

// Asks for another name until there is one that nothing has. A name can also be taken between the
// look at it and the end of the writing.
Status WriteUnderFreeName(Form1& form, bool& as_jpeg, std::vector<std::string>& lost) {
  Files& files = form.platform.files;
  const std::string& path = form.names.output_path;
  for (Failure failure = Failure::kCancelled;; failure = Failure::kNameTaken) {
    if (!SettleOutputPath(form)) return NotSaved(form, failure);
    if (!files.NameIsTaken(path)) {
      as_jpeg = IsJpegName(path);
      Status written = WritePhoto(form, as_jpeg, lost);
      if (written.failure != Failure::kExists) return written;
    }
    RefuseTakenName(form);
  }
}

void Notify(Form1& form, bool success) {
  const std::string& path = form.names.output_path;
  form.ShowNotification(success ? path : "(ERROR) Failed to saved image to: " + path,
                        kNotificationMilliseconds);
}

void MakeSavedPhotoTheOriginal(Form1& form) {
  PhotoSurfaces& surfaces = form.buffer.surfaces;
  Display(surfaces.picOriginal, surfaces.picSource.picture);
  surfaces.picOriginal.turned = surfaces.picSource.turned;
  ShowPhotoName(form, SplitPhotoPath(form.names.output_path).file_name);
  // There is no preview of it where memory did not suffice for one.
  if (surfaces.thumbnail_of.lock() == surfaces.picOriginal.picture) {
    GetHueIn(form.modules.hue, surfaces.picThumb.picture->view());
  }
  form.correction_ready = false;
}

}  // namespace

Status FileSave(Form1& form, bool notify) {
  const PictureSurface& source = form.buffer.surfaces.picSource;
  if (!source.picture || !source.image) {
    return Status::Error(Failure::kNotFound, "There is no photo to save.");
  }
  bool thumbnail_only = false;
  if (Status settled = SettleWhatToSave(form, thumbnail_only); !settled.ok()) return settled;

  const std::string proposed_path = form.names.output_path;
  bool as_jpeg = false;
  std::vector<std::string> lost;
  if (Status written = WriteUnderFreeName(form, as_jpeg, lost); !written.ok()) {
    if (IsKnownToUser(written)) return written;
    if (notify) Notify(form, /*success=*/false);
    form.names.output_path = proposed_path;
    return written;
  }

  TellWhatIsLost(form, as_jpeg, std::move(lost));
  TellOtherQuality(form, as_jpeg);
  if (Status learnt = AppendLearningRecord(form); !learnt.ok()) {
    form.platform.dialogs.Tell({form.app.title,
                                learnt.message + "; the photo is saved, but nothing was learnt",
                                Icon::kExclamation});
  }
  if (!thumbnail_only) MakeSavedPhotoTheOriginal(form);
  // A bitmap is announced as failed although it was written: the announcement has always told of
  // JPEG files only, and callers go by the status.
  if (notify) Notify(form, /*success=*/as_jpeg);
  BuildOutputNames(form.names, form.app.current_file, form.platform.files);
  form.app.photo_changed = false;
  return Status::Ok();
}

}  // namespace tarnwell
