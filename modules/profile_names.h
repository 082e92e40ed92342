#pragma once

#include <string>
#include <string_view>

#include "platform/status.h"

namespace tarnwell {

// A typed camera or mode name as a folder name: slash, backslash, bar, colon, double quote and
// question mark become underscores; everything else stays, blanks at the ends too.
std::string CleanProfileName(std::string_view typed);

// Refuses a clean name that cannot be a camera or mode folder on every system: empty, dots and
// blanks only, a control character, a device of the system ("con", "LPT1.txt"), the folder of the
// dead pixel samples.
Status CheckProfileName(const std::string& name);

// The folder of the dead pixel samples lies among a camera's modes but is none.
bool IsDeadPixelsFolder(const std::string& name);

}  // namespace tarnwell
