#include "imaging/open_photo_kept.h"

namespace tarnwell {

OpenPhotoKept::OpenPhotoKept(Form1& form)
    : form_(form),
      app_(form.app),
      modules_(form.modules),
      surfaces_(form.buffer.surfaces),
      metadata_(form.metadata),
      metadata_notes_told_(form.metadata_notes_told),
      collect_note_(form.collect_note),
      names_(form.names),
      histogram_(form.histogram),
      learnt_(form.learnt),
      correction_ready_(form.correction_ready),
      correction_cancelled_(form.correction_cancelled),
      title_(form.lblTitleCaption),
      caption_(form.caption) {}

OpenPhotoKept::~OpenPhotoKept() {
  if (forgotten_) return;
  form_.app.current_file = app_.current_file;
  form_.app.opened_path = app_.opened_path;
  form_.app.photo_changed = app_.photo_changed;
  form_.app.learning_record = app_.learning_record;
  form_.app.suppress_learning = app_.suppress_learning;
  form_.modules = modules_;
  form_.buffer.surfaces = surfaces_;
  form_.buffer.shadow_width = surfaces_.picThumb.width;
  form_.buffer.shadow_height = surfaces_.picThumb.height;
  form_.metadata = metadata_;
  form_.metadata_notes_told = metadata_notes_told_;
  form_.collect_note = collect_note_;
  form_.names = names_;
  form_.histogram = histogram_;
  form_.learnt = learnt_;
  form_.correction_ready = correction_ready_;
  form_.correction_cancelled = correction_cancelled_;
  form_.lblTitleCaption = title_;
  form_.caption = caption_;
}

}  // namespace tarnwell
