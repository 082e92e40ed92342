#include "shell/tell.h"

#include <new>

#include "platform/dialogs.h"
#include "platform/platform.h"
#include "shell/form1.h"
#include "shell/module1.h"

namespace tarnwell {

void TellFailure(Form1& form, const Status& status) {
  if (status.ok() || status.failure == Failure::kCancelled) return;
  form.platform.dialogs.Tell(form.app.title, status.message, Icon::kExclamation);
}

void TellLackOfMemory(Form1& form, const std::function<void()>& command) {
  try {
    command();
  } catch (const std::bad_alloc&) {
    TellFailure(form, Status::Error(Failure::kTooLarge, "There is not enough memory for this."));
  }
}

}  // namespace tarnwell
