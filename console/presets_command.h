#pragma once

#include "console/options.h"

namespace tarnwell {

struct ConsoleHost;

// Writes the preset of a panel with these settings, replacing the file. Settings that a preset does
// not carry are named on standard error. Returns the exit code: 2 when the settings name a file
// that cannot be read, 1 when the preset cannot be written.
int RunPresetsCommand(const PresetsOptions& options, ConsoleHost& host);

}  // namespace tarnwell
