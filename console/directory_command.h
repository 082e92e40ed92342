#pragma once

#include "console/options.h"

namespace tarnwell {

struct ConsoleHost;

// Corrects every photo of a folder into its "TWout" folder, several at once, and tells at the end
// how many were and which were not. Names and contents of the files do not depend on the number of
// threads. Returns the exit code: 1 when some photo failed or the folder cannot be used, 2 when the
// settings name a file that cannot be read, 130 when the user stopped the command; the photos in
// hand are then given up.
int RunDirectoryCommand(const DirectoryOptions& options, ConsoleHost& host);

}  // namespace tarnwell
