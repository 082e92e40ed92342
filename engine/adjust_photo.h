#pragma once

#include "platform/status.h"

namespace tarnwell {

struct Form1;

// One correction run of the photo in the window: over the thumbnail when `preview`, otherwise over
// the full photo, with the settings in force. The result becomes picSource (picOriginal is never
// changed); app.learning_record is left for the save and app.photo_changed is set.
//
// Fails with kCancelled when the cancel flag was set in between, and with kTooLarge when memory
// does not suffice; the pictures then stay as they were, if form.keeps_original. Refused with
// kOther while another run is under way (form.correcting).
Status AdjustPhoto(Form1& form, bool preview);

// AdjustPhoto for a preview that follows the panel without a command: what the last run told of the
// white balance is not told again.
Status CorrectPreviewAnew(Form1& form);

// Repairs dead pixels of picOriginal when that module is open, then measures the photo: the pass
// that runs when a photo is opened. Clears the cancel flag.
Status AnalyzeOpenedPhoto(Form1& form);

}  // namespace tarnwell
