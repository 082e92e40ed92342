#include "engine/learning_store.h"

#include "modules/frm_modules.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {

Status AppendLearningRecord(Form1& form) {
  const Module1& app = form.app;
  if (!form.modules.IsChecked(kLearnFromSavedPhotos) || app.suppress_learning ||
      app.learning_record.empty()) {
    return Status::Ok();
  }
  return form.platform.files.Append(app.mode_folder + kLearningFile, app.learning_record + "\r\n");
}

}  // namespace tarnwell
