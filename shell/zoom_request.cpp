#include "shell/zoom_request.h"

#include "engine/adjust_photo.h"
#include "imaging/pixel_buffer.h"
#include "modules/frm_modules.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"
#include "shell/preview_follow.h"
#include "shell/tell.h"

namespace tarnwell {

void RequestZoom(Form1& form) {
  const PhotoSurfaces& surfaces = form.buffer.surfaces;
  if (!surfaces.picSource.picture || !surfaces.picOriginal.picture) return;
  if (OnlyThumbnailCorrected(surfaces)) {
    const Answer answer = form.platform.dialogs.Ask(
        {form.app.title,
         "You must adjust the full size image to zoom, would you like to do that now?",
         Icon::kQuestion});
    if (answer != Answer::kYes) return;
    const Status adjusted = AdjustPhoto(form, /*preview=*/false);
    if (!adjusted.ok()) return TellFailure(form, adjusted);
  }
  form.modules.ShowZoom(ZoomMode::kViewOnly);
}

}  // namespace tarnwell
