#include "shell/preview_follow.h"

#include "imaging/pixel_buffer.h"
#include "modules/frm_modules.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {

bool OnlyThumbnailCorrected(const PhotoSurfaces& surfaces) {
  return surfaces.picSource.picture->view().pixel_count() !=
         surfaces.picOriginal.picture->view().pixel_count();
}

bool PreviewFollowsPanel(const Form1& form) {
  const PhotoSurfaces& surfaces = form.buffer.surfaces;
  if (!surfaces.picSource.picture || !surfaces.picOriginal.picture) return false;
  return form.app.photo_changed && OnlyThumbnailCorrected(surfaces);
}

bool IsPreviewSlow(const Form1& form) {
  if (form.app.analyze_full_source) return true;
  return form.app.extended_noise && form.modules.IsOpen(kNoiseReduction);
}

}  // namespace tarnwell
