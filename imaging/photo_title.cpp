#include "imaging/photo_title.h"

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

}  // namespace tarnwell
