#pragma once

#include <string>

#include "platform/status.h"

namespace tarnwell {

struct Form1;
struct LoadedPhoto;

// Asks whether to save unsaved changes, and saves them on Yes. False when the command that asked
// must stop: on Cancel, and when the save on Yes saved nothing, which the user did or was told of.
bool AskToSaveChanges(Form1& form);

// Opens a photo: asks about unsaved changes, shows the open dialog when `show_dialog` (otherwise
// takes form.app.opened_path), loads the file onto the surfaces, resets the per-photo state, builds
// the output names, repairs dead pixels and measures the photo, and runs the automatic preview if
// that is on.
//
// Events run while the file is read. Fails with kCancelled when the user backs out, and with the
// loader's reason when the file cannot be read; the photo that was open then stays as it was, and
// the user has been told by nobody: that is the caller's part. A preview that fails does not fail
// the open: the user is told.
Status FileOpen(Form1& form, bool show_dialog);

// The part of FileOpen behind the question and the dialog, for callers that have asked already.
// Fails with kCancelled and with the loader's reason.
Status OpenPhotoFile(Form1& form, const std::string& path);

// The part behind the reading: takes `photo` into the window as the one of this path, empty for a
// pasted one. Fails with kCancelled when the user did not wait for the repair of dead pixels; the
// photo that was open then stays.
Status OpenLoadedPhoto(Form1& form, const std::string& path, LoadedPhoto photo);

// Makes `photo` the window's original, with its metadata.
void TakeAsOriginal(Form1& form, LoadedPhoto photo);

}  // namespace tarnwell
