#pragma once

#include "console/options.h"

namespace tarnwell {

struct ConsoleHost;

// Runs the automated mode over three folders until the user stops it, or, with `once`, until the
// photos that are there are done. Being stopped is how the command normally ends: the photos in
// hand are finished first. Returns the exit code: 1 when some photo was given up or, with `once`,
// could not be taken; 2 when the settings name a file that cannot be read.
int RunWatchCommand(const WatchOptions& options, ConsoleHost& host);

}  // namespace tarnwell
