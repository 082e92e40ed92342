#include "imaging/open_photo_kept.h"

#include <type_traits>
#include <utility>

namespace tarnwell {
namespace {

// Whether moving one of these back can never fail, as it must not in a destructor.
template <typename... Types>
constexpr bool kMoveSafely = (std::is_nothrow_move_assignable_v<Types> && ...);
static_assert(kMoveSafely<frmModules, PhotoSurfaces, SharedMetadata, OutputNames, PictureHistogram,
                          LearntProposal, std::string, std::function<void(const std::string&)>>);

}  // namespace

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
  form_.app.current_file = std::move(app_.current_file);
  form_.app.opened_path = std::move(app_.opened_path);
  form_.app.photo_changed = app_.photo_changed;
  form_.app.learning_record = std::move(app_.learning_record);
  form_.app.suppress_learning = app_.suppress_learning;
  form_.modules = std::move(modules_);
  form_.buffer.shadow_width = surfaces_.picThumb.width;
  form_.buffer.shadow_height = surfaces_.picThumb.height;
  form_.buffer.surfaces = std::move(surfaces_);
  form_.metadata = std::move(metadata_);
  form_.metadata_notes_told = metadata_notes_told_;
  form_.collect_note = std::move(collect_note_);
  form_.names = std::move(names_);
  form_.histogram = std::move(histogram_);
  form_.learnt = learnt_;
  form_.correction_ready = correction_ready_;
  form_.correction_cancelled = correction_cancelled_;
  form_.lblTitleCaption = std::move(title_);
  form_.caption = std::move(caption_);
}

}  // namespace tarnwell
