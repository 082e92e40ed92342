#pragma once

#include <string>

namespace tarnwell {

class Files;

// What to open for help: `help_file` (it ends in ".hlp") where somebody has put one, otherwise the
// page of the same name that comes with the program.
std::string HelpToOpen(Files& files, const std::string& help_file);

}  // namespace tarnwell
