#pragma once

#include "console/options.h"

namespace tarnwell {

struct ConsoleHost;

// Corrects the photos one after the other, each from the same settings and none knowing of the
// others. Returns the exit code: 1 when some photo failed (each is named on standard error with the
// reason, the others are done all the same), 2 when the settings name a file that cannot be read
// (nothing is corrected then), 130 when the user stopped the command.
int RunCorrectCommand(const CorrectOptions& options, ConsoleHost& host);

}  // namespace tarnwell
