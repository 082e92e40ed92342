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
#include "shell/letter_case.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

constexpr char kSaveTitle[] = "Save Photo";
constexpr char kSaveFilter[] = "JPEG Image (*.jpg)|*.jpg|Bitmap (*.bmp)|*.bmp";
constexpr char kNotAppliedQuestion[] =
    "You have not yet applied your changes to the full photo, would you like to do that now?\r\r"
    "Click Yes to adjust full photo, or No to save the adjusted thumbnail";
constexpr int kNotificationMilliseconds = 1800;

Status Cancelled(const Form1& form) {
  return Status::Error(Failure::kCancelled, CurrentPhotoName(form) + ": was not saved");
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

  switch (form.platform.dialogs.Ask(form.app.title, kNotAppliedQuestion, Icon::kQuestion)) {
    case Answer::kCancel:
      return Cancelled(form);
    case Answer::kNo:
      thumbnail_only = true;
      break;
    case Answer::kYes:
      if (Status adjusted = AdjustPhoto(form, /*preview=*/false); !adjusted.ok()) return adjusted;
      break;
  }
  if (!form.app.cancel_requested) return Status::Ok();
  // A cancel by the user just now needs no words, but one of the run before does.
  if (thumbnail_only) {
    form.platform.dialogs.Tell(form.app.title,
                               CurrentPhotoName(form) +
                                   " was not saved, because its last correction was cancelled. "
                                   "Correct it again first.",
                               Icon::kInformation);
  }
  return Cancelled(form);
}

bool IsUnnamed(const std::string& path) { return path.empty() || path == kOtherPrompt; }

void RefuseTakenName(Form1& form) {
  const std::string& title = form.app.title;
  form.platform.dialogs.Tell(kNameTakenTitle,
                             title + " has detected that a photo with the file already exists. " +
                                 title +
                                 " currently has a policy of not overwriting photos, please define "
                                 "a different name for this photo.",
                             Icon::kExclamation);
  form.names.output_path.clear();
}

// Asks for an output path until there is one that nothing has yet.
Status SettleOutputPath(Form1& form) {
  Files& files = form.platform.files;
  std::string& path = form.names.output_path;
  for (;;) {
    if (IsUnnamed(path)) {
      // A cancelled dialog leaves the path unchanged.
      path = form.platform.dialogs.ChooseSaveFile(kSaveTitle, kSaveFilter, TakenNames::kLeave)
                 .value_or(path);
    }
    if (IsUnnamed(path)) return Cancelled(form);
    if (!files.FileExists(path) && !files.FolderExists(path)) return Status::Ok();
    RefuseTakenName(form);
  }
}

bool IsJpegPath(const std::string& path) {
  const std::string extension = FoldCase(SplitPhotoPath(path).extension);
  return extension == ".jpg" || extension == ".jpeg";
}

// As a sentence that names the photo, to the user or to whoever collects such sentences.
void TellNote(Form1& form, const std::string& text) {
  const std::string note = CurrentPhotoName(form) + ": " + text;
  if (form.collect_note) return form.collect_note(note);
  form.platform.dialogs.Tell(form.app.title, note, Icon::kInformation);
}

std::string InOneText(const std::vector<std::string>& sentences) {
  std::string text;
  for (const std::string& sentence : sentences) text += (text.empty() ? "" : " ") + sentence;
  return text;
}

// What the saved file does not keep: of a bitmap always, of a JPEG file once per photo.
void TellWhatIsLost(Form1& form, bool as_jpeg, std::vector<std::string> lost) {
  if (!form.metadata) return;
  if (!as_jpeg) {
    const std::string words = WhatPixelsAloneLose(*form.metadata);
    if (!words.empty()) TellNote(form, "A bitmap cannot keep its " + words + ".");
    return;
  }
  if (form.metadata_notes_told) return;
  lost.insert(lost.begin(), form.metadata->notes.begin(), form.metadata->notes.end());
  if (!lost.empty()) TellNote(form, InOneText(lost));
  form.metadata_notes_told = true;
}

// The quality to save with: the slider's, or the photo's own where that is wanted and known.
std::optional<int> SavedQuality(const Form1& form) {
  if (form.modules.save_switches[kQualityAsOriginal] && form.metadata &&
      form.metadata->jpeg_quality) {
    return form.metadata->jpeg_quality;
  }
  return form.modules.Value(kJpegQualitySlider);
}

// Through a section of 24 bits and without segments: what the external library knows. The segments
// come in afterwards.
Status WriteJpegSection(Form1& form, const std::string& path, const JpegPicture& picture) {
  Files& files = form.platform.files;
  const std::string shown_path = files.Display(path);
  cDIBSection section;
  section.CreateFromPicture(picture.pixels);
  if (section.DIBSectionBitsPtr() == nullptr) {
    return Status::Error(Failure::kTooLarge, shown_path + ": there is not enough memory to save");
  }
  const bool written = SaveJpegFile(section, path, picture.quality, form.platform.jpeg,
                                    form.platform.dialogs, form.app.title);
  if (!written) {
    return Status::Error(Failure::kOther, shown_path + ": the JPEG file could not be written");
  }
  if (picture.segments.empty()) return Status::Ok();
  const Result<std::string> plain = files.Read(path);
  if (!plain.ok()) return plain.status;
  return files.Replace(path, WithSegments(*plain, picture.segments));
}

// `lost` is told what of the photo's metadata could not be kept.
Status WriteJpeg(Form1& form, const std::string& path, std::vector<std::string>& lost) {
  const std::optional<int> value = SavedQuality(form);
  if (!value) {
    return Status::Error(Failure::kOther, form.platform.files.Display(path) +
                                              ": the JPEG quality is no whole number");
  }
  const int quality = std::clamp(*value, 0, 100);
  const PictureSurface& source = form.buffer.surfaces.picSource;
  const PixelView pixels = source.picture->view();
  MetadataToSave kept;
  if (form.metadata) {
    kept = MetadataFor(
        *form.metadata, pixels,
        {.leave_place_out = form.modules.save_switches[kLeavePlaceOut], .turned = source.turned});
  }
  lost = std::move(kept.notes);
  const JpegPicture picture = {.pixels = pixels,
                               .quality = quality,
                               .half_chrominance = HalvesChrominance(quality),
                               .threads = form.threads,
                               .segments = kept.segments};
  JpegLibrary& library = form.platform.jpeg;
  return library.TakesPictures() ? library.WritePicture(path, picture)
                                 : WriteJpegSection(form, path, picture);
}

// The user chose `path` and never heard of the temporary file beside it.
Status InNameOf(Status status, const std::string& path, const std::string& temporary) {
  if (const std::size_t at = status.message.find(temporary); at != std::string::npos) {
    status.message.replace(at, temporary.size(), path);
  }
  return status;
}

// Writes the working image to the new file `path`.
Status WriteImage(Form1& form, const std::string& path, bool as_jpeg,
                  std::vector<std::string>& lost) try {
  if (as_jpeg) return WriteJpeg(form, path, lost);
  return form.platform.codec.SaveBitmap(path, form.buffer.surfaces.picSource.image->view());
} catch (const std::bad_alloc&) {
  return Status::Error(Failure::kTooLarge,
                       form.platform.files.Display(path) + ": there is not enough memory to save");
}

// Writes the working image to the new file names.output_path, in the format that its extension
// says. Whatever fails leaves no file; kExists when the name was taken meanwhile. `lost` is told
// what of the photo's metadata could not be kept.
Status WritePhoto(Form1& form, bool as_jpeg, std::vector<std::string>& lost) {
  Files& files = form.platform.files;
  const std::string& path = form.names.output_path;
  const std::string temporary = files.TemporaryBeside(path);
  Status status = WriteImage(form, temporary, as_jpeg, lost);
  if (status.ok()) {
    status = files.Publish(temporary, path);
  } else {
    // Most often there is no file; how the clean-up goes changes nothing for the user.
    static_cast<void>(files.Delete(temporary));
  }
  return InNameOf(std::move(status), files.Display(path), files.Display(temporary));
}

// A name can be taken between the look at it and the end of the writing; that counts as taken, too.
Status WriteUnderFreeName(Form1& form, bool& as_jpeg, std::vector<std::string>& lost) {
  for (;;) {
    if (Status named = SettleOutputPath(form); !named.ok()) return named;
    as_jpeg = IsJpegPath(form.names.output_path);
    Status written = WritePhoto(form, as_jpeg, lost);
    if (written.failure != Failure::kExists) return written;
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
  GetHueIn(form.modules.hue, surfaces.picThumb.picture->view());
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
    if (written.failure == Failure::kCancelled) return written;
    if (notify) Notify(form, /*success=*/false);
    form.names.output_path = proposed_path;
    return written;
  }

  TellWhatIsLost(form, as_jpeg, std::move(lost));
  if (Status learnt = AppendLearningRecord(form); !learnt.ok()) {
    form.platform.dialogs.Tell(form.app.title,
                               learnt.message + "; the photo is saved, but nothing was learnt",
                               Icon::kExclamation);
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
