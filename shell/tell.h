#pragma once

#include "platform/status.h"

namespace tarnwell {

struct Form1;

// Tells the user why a command failed. Says nothing after a success, nor after a command that the
// user cancelled.
void TellFailure(Form1& form, const Status& status);

}  // namespace tarnwell
