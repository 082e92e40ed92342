#pragma once

namespace tarnwell {

struct Form1;

// The Edit menu. What fails is told to the user.

// Puts the working image on the clipboard, with its corrections.
void CopySource(Form1& form);

// Puts the preview on the clipboard.
void CopyThumb(Form1& form);

// Takes the picture on the clipboard as a new photo, which has no file and no name. Asks about
// unsaved changes first; without a picture, or on Cancel, the photo in the window stays.
void PasteSource(Form1& form);

}  // namespace tarnwell
