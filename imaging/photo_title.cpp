#include "imaging/photo_title.h"

#include "imaging/output_names.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {

void ShowPhotoName(Form1& form, const std::string& file_name) {
  if (file_name.empty()) {
    form.lblTitleCaption = " - Unnamed Photo";
    form.caption = form.app.title + form.lblTitleCaption;
  } else {
    form.lblTitleCaption = " - " + file_name;
    form.caption = file_name + " - " + form.app.title;
  }
}

std::string CurrentPhotoName(const Form1& form) {
  const std::string name = SplitPhotoPath(form.app.current_file).file_name;
  return name.empty() ? "the current image" : name;
}

}  // namespace tarnwell
