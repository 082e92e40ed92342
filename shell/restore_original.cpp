#include "shell/restore_original.h"

#include "imaging/pixel_buffer.h"
#include "imaging/thumbnail.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {

void RestoreOriginalImage(Form1& form) {
  PhotoSurfaces& surfaces = form.buffer.surfaces;
  if (!surfaces.picOriginal.picture) return;
  ShowOriginalAsSource(surfaces);
  MakeThumbnail(form.buffer, form.platform.events);
  form.app.photo_changed = false;
  form.app.learning_record.clear();
}

}  // namespace tarnwell
