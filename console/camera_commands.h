#pragma once

#include "console/options.h"

namespace tarnwell {

struct ConsoleHost;

// Prints every camera and, below it, its modes with the number of corrections learnt. Makes
// nothing. Returns the exit code: 1 when a folder or a learning file cannot be read whole.
int RunCamerasCommand(const CamerasOptions& options, ConsoleHost& host);

// Prints the number of corrections learnt for a camera and mode, or deletes them. Returns the exit
// code: 2 when there is no such camera or mode, 1 when the file cannot be read whole or deleted.
int RunLearningCommand(const LearningOptions& options, ConsoleHost& host);

}  // namespace tarnwell
