#include "shell/tell.h"

#include <new>

#include "platform/dialogs.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {

void TellFailure(const Module1& app, Platform& platform, const Status& status) {
  if (status.ok() || status.failure == Failure::kCancelled) return;
  platform.dialogs.Tell({app.title, status.message, Icon::kExclamation});
}

void TellFailure(Form1& form, const Status& status) {
  TellFailure(form.app, form.platform, status);
}

void TellLackOfMemory(Form1& form, const std::function<void()>& command) {
  try {
    command();
  } catch (const std::bad_alloc&) {
    TellFailure(form, Status::Error(Failure::kTooLarge, "There is not enough memory for this."));
  }
}

}  // namespace tarnwell
