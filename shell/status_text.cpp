#include "shell/status_text.h"

#include "engine/learning_data.h"
#include "imaging/output_names.h"
#include "imaging/photo_title.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {
namespace {

constexpr char kDot[] = "  \xE2\x80\xA2  ";
constexpr char kTimes[] = " \xC3\x97 ";

// A saved photo goes on under its new name.
bool WasSaved(const Form1& form) {
  const std::string_view shown = ShownPhotoName(form);
  return !shown.ends_with("Unnamed Photo") && shown != CurrentPhotoName(form);
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
  constexpr char kState[] = "corrected, not saved";
  return learnt.empty() ? size + kDot + kState : kState + (kDot + learnt);
}

}  // namespace tarnwell
