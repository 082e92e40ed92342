#pragma once

#include "platform/status.h"

namespace tarnwell {

struct Form1;

// Saves the working image to form.names.output_path, asking for a name when there is none or when
// it is taken; never replaces a file. Asks first when only the thumbnail was corrected. On success
// the saved result becomes the new original, the output names are built anew and the modified flag
// is cleared. `notify`: show the outcome in the notification panel.
//
// Fails with kCancelled when the user or a cancelled correction ended it, with kNameTaken when the
// name was taken and nobody gave another (both leave the output path empty or as it was asked for
// last), otherwise with the reason
// that nothing could be written (the modified flag then stays set, so that nothing is lost, and the
// output path is what it was before). A learning record that cannot be kept is told to the user and
// does not fail the save.
Status FileSave(Form1& form, bool notify);

}  // namespace tarnwell
