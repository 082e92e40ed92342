#include "shell/clipboard_commands.h"

#include "engine/adjust_photo.h"
#include "imaging/file_open.h"
#include "imaging/load_photo.h"
#include "imaging/pixel_buffer.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"
#include "shell/tell.h"

namespace tarnwell {
namespace {

void Copy(Form1& form, const PictureSurface& surface) {
  if (!surface.picture || form.platform.clipboard.SetPicture(surface.picture->view())) return;
  form.platform.dialogs.Tell({form.app.title,
                              "The picture could not be copied. Another program may be using the "
                              "clipboard.",
                              Icon::kExclamation});
}

}  // namespace

void CopySource(Form1& form) { Copy(form, form.buffer.surfaces.picSource); }

void CopyThumb(Form1& form) { Copy(form, form.buffer.surfaces.picThumb); }

void PasteSource(Form1& form) {
  // Taken before the question: it need not come up when there is nothing to paste, and what the
  // user sees on the clipboard now is what is pasted.
  const Picture pasted = form.platform.clipboard.GetPicture();
  if (!pasted) {
    form.platform.dialogs.Tell(
        {form.app.title, "There is no picture on the clipboard, or another program is using it.",
         Icon::kInformation});
    return;
  }
  if (!AskToSaveChanges(form)) return;

  TellFailure(form, OpenLoadedPhoto(form, /*path=*/"", {pasted, nullptr}));
}

}  // namespace tarnwell
