#include "shell/tell.h"

#include <new>

#include "imaging/photo_title.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {

bool IsKnownToUser(const Status& failure) {
  return failure.failure == Failure::kCancelled || failure.failure == Failure::kNameTaken;
}

void TellFailure(const Module1& app, Platform& platform, const Status& status) {
  if (status.ok() || IsKnownToUser(status)) return;
  platform.dialogs.Tell({app.title, status.message, Icon::kExclamation});
}

void TellFailure(Form1& form, const Status& status) {
  TellFailure(form.app, form.platform, status);
}

void TellNote(Form1& form, const std::string& text) {
  const std::string note = CurrentPhotoName(form) + ": " + text;
  if (form.collect_note) return form.collect_note(note);
  form.platform.dialogs.Tell({form.app.title, note, Icon::kInformation});
}

void TellLackOfMemory(Form1& form, const std::function<void()>& command) {
  try {
    command();
  } catch (const std::bad_alloc&) {
    TellFailure(form, Status::Error(Failure::kTooLarge, "There is not enough memory for this."));
  }
}

}  // namespace tarnwell
