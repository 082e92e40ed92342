#pragma once

#include <string>

namespace tarnwell {

// The commands there are, for a word that is none and for help without a command.
std::string CommandsHelp();

// What stands behind the options in a command's help: modules, sliders and check options with their
// numbers, ranges and defaults.
std::string SettingsHelp();

// What stands behind the options of "deadpixels": how a map is made and used.
std::string DeadPixelsHelp();

}  // namespace tarnwell
