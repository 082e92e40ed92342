#include "shell/status_text.h"

#include "engine/learning_data.h"
#include "imaging/output_names.h"
#include "imaging/photo_title.h"
#include "shell/form1.h"
#include "shell/module1.h"
#include "shell/preview_follow.h"

namespace tarnwell {
namespace {

constexpr char kDot[] = "  \xE2\x80\xA2  ";
constexpr char kTimes[] = " \xC3\x97 ";

// A saved photo goes on under its new name.
bool WasSaved(const Form1& form) {
  const std::string_view shown = ShownPhotoName(form);
  return !shown.ends_with("Unnamed Photo") && shown != CurrentPhotoName(form);
}

// A preview follows the settings; a full correction waits for a command to be made anew.
const char* StateOfCorrection(const Form1& form) {
  if (OnlyThumbnailCorrected(form.buffer.surfaces)) return "preview corrected, not saved";
  const bool in_force =
      !form.corrected_with || *form.corrected_with == CurrentSettings(form.app, form.modules);
  return in_force ? "corrected, not saved" : "corrected with other settings than these, not saved";
}

}  // namespace

std::string_view ShownPhotoName(const Form1& form) {
  constexpr std::string_view kDash = " - ";
  const std::string_view caption = form.lblTitleCaption;
  return caption.starts_with(kDash) ? caption.substr(kDash.size()) : caption;
}

std::string StatusText(const Form1& form) {
  const Picture& original = form.buffer.surfaces.picOriginal.picture;
  if (!original) return "Ready";
  const std::string size =
      std::to_string(original->width()) + kTimes + std::to_string(original->height()) + " pixels";
  if (!form.app.photo_changed) {
    if (!WasSaved(form)) return size;
    const std::string name(ShownPhotoName(form));
    return size + kDot + "saved as " + name + HowWritten(name);
  }
  // What was learnt is news, and too long to stand beside the size.
  const std::string learnt = ProposalText(form.learnt);
  const std::string state = StateOfCorrection(form);
  return learnt.empty() ? size + kDot + state : state + kDot + learnt;
}

}  // namespace tarnwell
